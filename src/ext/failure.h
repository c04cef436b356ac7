#pragma once

#include <string_view>

namespace zorvel
{

/// Composes the pieces, in order and with nothing in between, into the complete message of a failure.
/// @throws std::runtime_error with that message, always
[[noreturn]] void throwError(std::string_view piece, std::string_view second = {}, std::string_view third = {},
                             std::string_view fourth = {});

/// The wording of every failure. A head that ends in an apostrophe is followed by the parameter as written
/// and a tail; one that ends in " in " by the name of the source.
namespace message
{

constexpr std::string_view BadArguments = "Error while parsing parameters";
constexpr std::string_view NullBlock = "Null subBlock detected";
/// Followed by a blank and the file's name. An include tag recognises the failure by this text.
constexpr std::string_view CannotOpen = "Could not open file";
constexpr std::string_view TooDeep = "Template is nested too deeply in ";

constexpr std::string_view MissingClose = "Missing closing tag in ";
constexpr std::string_view UnexpectedEndOptional = "Unexpected closing optional tag in ";
constexpr std::string_view UnexpectedEndDynamic = "Unexpected closing dynamic tag in ";
constexpr std::string_view UnexpectedEndReverseDynamic = "Unexpected closing rdynamic tag in ";

constexpr std::string_view BadPath = "Bad formated parameter'";
constexpr std::string_view TooManyColons = "': too many : in ";
constexpr std::string_view TooManyWildcards = "': too many * in ";
constexpr std::string_view TooManyNamespaces = "': too many namespaces in ";
constexpr std::string_view FirstTooManyWildcards = "Bad formated parameter: too many * in ";
constexpr std::string_view FirstTooManyNamespaces = "Bad formated parameter: too many namespaces in ";
constexpr std::string_view KeyNotLast = "Bad formated parameter: [*] must be last in ";

constexpr std::string_view BadInclude = "Include block bad parameter '";
constexpr std::string_view NoFileName = "Include block bad parameter: no parameter found in ";
constexpr std::string_view AsteriskInFileName = "': asterisk in filename is forbidden in ";
constexpr std::string_view IncludeCircle = "': circle is detected in ";

constexpr std::string_view BadDynamic = "Dynamic block bad parameter '";
constexpr std::string_view NamespaceUsed = "': namespace is used already in ";
constexpr std::string_view KeyForbidden = "': [*] is forbidden in ";
constexpr std::string_view NoParameter = "': no parameter found in ";

constexpr std::string_view BadVariable = "Variable block bad parameter '";
constexpr std::string_view QuoteInWord = "': ' is forbidden in variable in ";
constexpr std::string_view QuoteNotClosed = "': could not find second ' as the last character in ";

} // namespace message

} // namespace zorvel
