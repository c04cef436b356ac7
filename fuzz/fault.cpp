/// fault [--every N] FILE...: renders inputs of the fuzzer again and again, as text and as a file, and lets something
/// fail each time: every operator new, every allocation of the engine's, every operation on a stream, and every entry
/// into user code, one after the other. A call that fails has to tell so once, to leave nothing behind, and to leave
/// the process fit to render a page. --every 8 lets every eighth of them fail.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <limits>
#include <new>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <zend_exceptions.h>

#include "embed.h"
#include "faults.h"
#include "heap.h"
#include "input.h"
#include "memory_files.h"
#include "observe.h"

namespace
{

using faults::Kind;

constexpr auto everAfter = std::numeric_limits<std::int64_t>::max();

std::optional<embed::Request> request;
std::int64_t every = 1;
std::int64_t turn = 0;
std::int64_t points = 0;

/// Whether it is this point's turn.
bool isDue()
{
    const bool due = ++turn % every == 0;
    points += due ? 1 : 0;
    return due;
}

[[noreturn]] void report(const std::string& wrong, const std::string& where, const std::string& input)
{
    std::fprintf(stderr, "%s\nwhen %s for the input:\n%s\n", wrong.c_str(), where.c_str(), input.c_str());
    std::abort();
}

/// What came of a point.
struct Result {
    std::string wrong;
    bool ended = false; ///< the request: the engine drops with it what it has left behind
};

/// @param strike renders with the fault, and returns a Result
/// @param isFit whether a page is as it should be after it
template <typename Strike, typename IsFit>
void tryPoint(const std::string& where, const std::string& input, Strike strike, IsFit isFit)
{
    if (!isDue())
        return;
    const heap::Blocks before = heap::alive();
    Result result = strike();
    const auto again = [&] { result = strike(); };
    if (result.ended ? heap::alive().cpp != before.cpp : heap::alive() != before && heap::leaks(again))
        result.wrong += "it leaks";
    faults::plan(Kind::None, nullptr, 0, 0);
    if (result.wrong.empty() && !isFit())
        result.wrong = "no page after it";
    if (!result.wrong.empty())
        report(result.wrong, where, input);
}

// Faults below PHP code

struct Case {
    std::string bytes;
    fuzz::Input input;
    model::Value data;
    bool inMemory;

    std::string source() const { return inMemory ? input.text : "in://1"; }
};

void renew()
{
    request.reset();
    request.emplace();
    memory_files::switchOffPlainFiles();
}

/// What the engine leaves behind when it bails out it drops with the request.
fuzz::Seen render(const Case& example)
{
    memory_files::serve(&example.input.files);
    zval data = fuzz::toPhp(example.data);
    const fuzz::Seen seen = fuzz::observe(example.source(), example.inMemory, &data);
    if (seen.bailedOut)
        renew();
    else
        zval_ptr_dtor(&data);
    return seen;
}

/// What a call may do when something has failed: none has more than one warning, and none beside an exception.
using Judge = bool (*)(const model::Outcome& seen, const model::Outcome& whole);

bool failsOnce(const model::Outcome& seen, const model::Outcome& whole)
{
    const bool warns = seen.warning == "std::bad_alloc" || (!whole.page && seen.warning == whole.warning);
    return !seen.page && (seen.threw ? seen.warning.empty() : warns);
}

bool endsSomehow(const model::Outcome& seen, const model::Outcome&)
{
    return !seen.page == (seen.threw || !seen.warning.empty()) && !(seen.threw && !seen.warning.empty());
}

bool throws(const model::Outcome& seen, const model::Outcome&)
{
    return !seen.page && seen.threw && seen.warning.empty();
}

bool isUnmoved(const model::Outcome& seen, const model::Outcome& whole)
{
    return seen == whole;
}

struct Fault {
    const char* name;
    Kind kind;
    faults::Act act;
    bool lasts;
    Judge judge; ///< null: it bails out

    /// @param number of the operation that fails first, 0: none does
    void plan(std::int64_t number) const
    {
        zend_atomic_bool_store(&EG(vm_interrupt), kind == Kind::Interrupt);
        faults::plan(kind, act, number, lasts && number > 0 ? everAfter : number);
    }
};

void throwBadAlloc()
{
    throw std::bad_alloc();
}

void bailOut()
{
    const faults::Armed none(false);
    zend_bailout();
}

void throwException()
{
    const faults::Armed none(false);
    zend_throw_exception(nullptr, "thrown", 0);
}

const Fault memoryFaults[] = {
    {"operator new throws once", Kind::New, throwBadAlloc, false, failsOnce},
    {"operator new throws from then on", Kind::New, throwBadAlloc, true, failsOnce},
    {"the engine has no memory", Kind::EngineAllocation, bailOut, false, nullptr},
};

const Fault otherFaults[] = {
    {"a file cannot be opened", Kind::OpenFile, nullptr, false, endsSomehow},
    {"a file throws when it is opened", Kind::OpenFile, throwException, false, throws},
    {"a read fails once", Kind::ReadFile, nullptr, false, isUnmoved},
    {"reads fail from then on", Kind::ReadFile, nullptr, true, endsSomehow},
    {"a read throws", Kind::ReadFile, throwException, false, throws},
    {"a file cannot be closed", Kind::CloseFile, nullptr, false, isUnmoved},
    {"a file throws when it is closed", Kind::CloseFile, throwException, false, throws},
    {"a signal's handler throws", Kind::Interrupt, throwException, false, throws},
    {"a signal's handler ends the request", Kind::Interrupt, bailOut, false, nullptr},
};

/// Asks for the next one as well: the extension lets the engine in wherever it can.
void interrupt(zend_execute_data*)
{
    zend_atomic_bool_store(&EG(vm_interrupt), true);
    faults::reach(Kind::Interrupt);
}

Case controlCase(bool inMemory)
{
    const std::string bytes = "[a[0'<'1'>']]\n--\n{dynamic n,a}{htmlspecialchars n::*}{include in://2}{/dynamic}"
                              "\n--\n{optional [*] 1}!{/optional}";
    const fuzz::Input input = fuzz::readInput(bytes);
    return {bytes, input, fuzz::readData(input.data), inMemory};
}

/// A page after the fault, as text and as a file.
bool isFit()
{
    static const Case controls[] = {controlCase(true), controlCase(false)};
    faults::plan(Kind::None, nullptr, 0, 0);
    return std::all_of(std::begin(controls), std::end(controls),
                       [](const Case& control) { return render(control).outcome.page == "&lt;&gt;!"; });
}

Result strike(const Case& example, const Fault& fault, std::int64_t number, const model::Outcome& whole)
{
    fault.plan(number);
    const fuzz::Seen seen = render(example);
    if (memory_files::open() != 0)
        return {"a stream stays open", seen.bailedOut};
    if (seen.bailedOut != (fault.judge == nullptr))
        return {"it bails out, or does not", seen.bailedOut};
    if (fault.judge != nullptr && !fault.judge(seen.outcome, whole))
        return {"page " + seen.outcome.page.value_or("null") + ", warning \"" + seen.outcome.warning + "\"", false};
    return {"", seen.bailedOut};
}

void inject(const Case& example, const Fault& fault)
{
    fault.plan(0);
    const model::Outcome whole = render(example).outcome;
    const std::int64_t count = faults::met();
    for (std::int64_t number = 1; number <= count; ++number)
        tryPoint(
            fault.name, example.bytes, [&] { return strike(example, fault, number, whole); }, isFit);
}

// User code

const char* const acts[] = {"throw", "typeError", "exit",  "fatal", "overwrite", "grow",   "unset",
                            "reset", "extend",    "close", "call",  "collect",   "suspend"};

void renewUser()
{
    zend_clear_exception();
    request.reset();
    request.emplace();
    embed::run("require '" ZORVEL_FUZZ_FOLDER "/fault.php';");
}

bool isFitForUser()
{
    zval fit;
    return fuzz::call("control", &fit, 0, nullptr) && Z_TYPE(fit) == IS_TRUE;
}

Result strikeUser(const std::string& bytes, bool inMemory, const char* act, std::int64_t point)
{
    zval arguments[4];
    zval wrong;
    ZVAL_STRINGL(&arguments[0], bytes.data(), bytes.size());
    ZVAL_BOOL(&arguments[1], inMemory);
    ZVAL_STRING(&arguments[2], act);
    ZVAL_LONG(&arguments[3], point);
    const bool returned = fuzz::call("strike", &wrong, 4, arguments);
    zval_ptr_dtor(&arguments[0]);
    zval_ptr_dtor(&arguments[2]);
    if (!returned || EG(exception) != nullptr) {
        renewUser();
        return {"", true};
    }
    Result result{Z_STRVAL(wrong)};
    zval_ptr_dtor(&wrong);
    return result;
}

std::int64_t entries()
{
    zval count;
    fuzz::call("entries", &count, 0, nullptr);
    return Z_LVAL(count);
}

/// Every entry into user code does everything.
void injectActs(const std::string& bytes, bool inMemory)
{
    strikeUser(bytes, inMemory, "", 0);
    const std::int64_t count = entries();
    for (std::int64_t point = 1; point <= count; ++point) {
        for (const char* act : acts)
            tryPoint(
                std::string("user code does: ") + act, bytes, [&] { return strikeUser(bytes, inMemory, act, point); },
                isFitForUser);
    }
}

/// No memory, while user code takes part in the call.
void injectUser(const std::string& bytes, bool inMemory, const Fault& fault)
{
    fault.plan(0);
    strikeUser(bytes, inMemory, "", 0);
    const std::int64_t count = faults::met();
    const auto strikeAt = [&](std::int64_t number) {
        fault.plan(number);
        return strikeUser(bytes, inMemory, "", 0);
    };
    for (std::int64_t number = 1; number <= count; ++number)
        tryPoint(
            fault.name, bytes, [&] { return strikeAt(number); }, isFitForUser);
}

std::string contents(const std::string& name)
{
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void tell(const char* what)
{
    std::printf("%7lld points: %s\n", static_cast<long long>(std::exchange(points, 0)), what);
    std::fflush(stdout);
}

/// @param inject is called for each input, as text and as a file
template <typename Inject>
void forAll(const std::vector<std::string>& inputs, const char* what, Inject inject)
{
    for (const std::string& bytes : inputs) {
        inject(bytes, true);
        inject(bytes, false);
    }
    tell(what);
}

void injectIntoUserCode(const std::vector<std::string>& inputs)
{
    renewUser();
    isFitForUser();
    forAll(inputs, "user code turns against the call", injectActs);
    for (const Fault& fault : memoryFaults)
        forAll(inputs, fault.name, [&](const auto& bytes, bool inMemory) { injectUser(bytes, inMemory, fault); });
}

void injectBelowUserCode(const std::vector<std::string>& inputs)
{
    request.reset();
    fuzz::enterModelWorld();
    zend_interrupt_function = interrupt;
    renew();
    isFit();
    const auto injectAll = [&](const Fault& fault) {
        forAll(inputs, fault.name, [&](const std::string& bytes, bool inMemory) {
            const fuzz::Input input = fuzz::readInput(bytes);
            inject({bytes, input, fuzz::readData(input.data), inMemory}, fault);
        });
    };
    std::for_each(std::begin(memoryFaults), std::end(memoryFaults), injectAll);
    std::for_each(std::begin(otherFaults), std::end(otherFaults), injectAll);
}

} // namespace

int main(int argc, char** argv)
{
    std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.size() > 1 && arguments[0] == "--every") {
        every = std::stoll(arguments[1]);
        arguments.erase(arguments.begin(), arguments.begin() + 2);
    }
    std::vector<std::string> inputs;
    std::transform(arguments.begin(), arguments.end(), std::back_inserter(inputs), contents);
    fuzz::startPhp("include_path=\ndisplay_errors=0");
    injectIntoUserCode(inputs);
    injectBelowUserCode(inputs);
    request.reset();
    embed::stop();
}
