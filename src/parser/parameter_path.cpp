#include "parser/parameter_path.h"

#include <algorithm>

#include "data/path_lookup.h"
#include "ext/failure.h"
#include "source/template.h"

namespace zorvel
{

namespace
{

/// Takes a parameter's segments from right to left.
class SegmentReader
{
public:
    SegmentReader(const Template& tpl, std::string_view parameter) : source_(tpl.name()), parameter_(parameter) {}

    ParameterView read();

private:
    void take(std::string_view segment, bool first);
    void takeWildcard(ParamStatus wildcard, bool first);
    void takeName(std::string_view name, bool first);
    [[noreturn]] void fail(bool first, std::string_view firstText, std::string_view text) const;

    const std::string& source_;
    const std::string_view parameter_;
    ParameterView view_;
};

/// The status that a segment gives its parameter; Found for a name.
ParamStatus statusOf(std::string_view segment, bool first)
{
    if (segment == "[*]")
        return ParamStatus::LoopKey;
    return segment == "*" || (first && segment == ".*") ? ParamStatus::LoopValue : ParamStatus::Found;
}

/// The last "::" that starts before `end`; npos when there is none.
std::size_t findLastSeparator(std::string_view text, std::size_t end)
{
    for (std::size_t start = std::min(end, text.size()); start-- > 0;) {
        if (text[start] == ':' && start + 1 < text.size() && text[start + 1] == ':')
            return start;
    }
    return std::string_view::npos;
}

ParameterView SegmentReader::read()
{
    std::size_t end = parameter_.size();
    std::size_t separator = findLastSeparator(parameter_, end);
    while (separator != std::string_view::npos) {
        const std::size_t begin = separator + 2;
        if (begin >= end)
            throwError(message::badPath, parameter_, message::tooManyColons, source_);
        take(parameter_.substr(begin, end - begin), false);
        if (separator == 0)
            throwError(message::badPath, parameter_, message::tooManyColons, source_);
        end = separator;
        separator = findLastSeparator(parameter_, end);
    }
    take(parameter_.substr(0, end), true);
    return view_;
}

void SegmentReader::take(std::string_view segment, bool first)
{
    const ParamStatus status = statusOf(segment, first);
    if (status == ParamStatus::Found)
        takeName(segment, first);
    else
        takeWildcard(status, first);
}

void SegmentReader::takeWildcard(ParamStatus wildcard, bool first)
{
    if (view_.status != ParamStatus::Found)
        fail(first, message::firstTooManyWildcards, message::tooManyWildcards);
    if (wildcard == ParamStatus::LoopKey && !view_.path.empty())
        throwError(message::keyNotLast, source_);
    view_.status = wildcard;
}

void SegmentReader::takeName(std::string_view name, bool first)
{
    if (!view_.namespaceName.empty())
        fail(first, message::firstTooManyNamespaces, message::tooManyNamespaces);
    if (view_.status != ParamStatus::Found)
        view_.namespaceName = name;
    else
        view_.path = parameter_.substr(static_cast<std::size_t>(name.data() - parameter_.data()));
}

void SegmentReader::fail(bool first, std::string_view firstText, std::string_view text) const
{
    if (first)
        throwError(firstText, source_);
    throwError(message::badPath, parameter_, text, source_);
}

} // namespace

std::deque<std::string> keysOf(const ParameterView& view)
{
    std::deque<std::string> keys;
    const bool isLoop = view.status == ParamStatus::LoopValue || view.status == ParamStatus::LoopKey;
    if (isLoop && view.path.empty())
        return keys;
    KeyCursor cursor(view.path);
    for (std::string_view key; cursor.next(key);)
        keys.emplace_back(key);
    return keys;
}

ParsedParameter parseParameterPath(Template& tpl, std::string_view parameter)
{
    const ParameterView view = SegmentReader(tpl, parameter).read();
    return {keysOf(view), std::string(view.namespaceName), view.status};
}

ResolvedParameter resolveParameter(Template& tpl, std::string_view parameter)
{
    const ParameterView view = resolveView(tpl, parameter);
    return {view.value, keysOf(view), std::string(view.namespaceName), view.status};
}

ParameterView resolveView(const Template& tpl, std::string_view parameter)
{
    ParameterView view = SegmentReader(tpl, parameter).read();
    if (view.status != ParamStatus::Found)
        return view;
    view.value = lookupAbsolutePath(tpl.input->userData, view.path);
    if (view.value == nullptr)
        view.status = ParamStatus::NotFound;
    return view;
}

} // namespace zorvel
