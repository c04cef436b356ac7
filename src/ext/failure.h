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

constexpr std::string_view badArguments = "Error while parsing parameters";
constexpr std::string_view nullBlock = "Null subBlock detected";
/// Followed by a blank and the file's name. An include tag recognises the failure by this text.
constexpr std::string_view cannotOpen = "Could not open file";
constexpr std::string_view tooDeep = "Template is nested too deeply in ";

constexpr std::string_view missingClose = "Missing closing tag in ";
constexpr std::string_view unexpectedEndOptional = "Unexpected closing optional tag in ";
constexpr std::string_view unexpectedEndDynamic = "Unexpected closing dynamic tag in ";
constexpr std::string_view unexpectedEndReverseDynamic = "Unexpected closing rdynamic tag in ";

constexpr std::string_view badPath = "Bad formated parameter'";
constexpr std::string_view tooManyColons = "': too many : in ";
constexpr std::string_view tooManyWildcards = "': too many * in ";
constexpr std::string_view tooManyNamespaces = "': too many namespaces in ";
constexpr std::string_view firstTooManyWildcards = "Bad formated parameter: too many * in ";
constexpr std::string_view firstTooManyNamespaces = "Bad formated parameter: too many namespaces in ";
constexpr std::string_view keyNotLast = "Bad formated parameter: [*] must be last in ";

constexpr std::string_view badInclude = "Include block bad parameter '";
constexpr std::string_view noFileName = "Include block bad parameter: no parameter found in ";
constexpr std::string_view asteriskInFileName = "': asterisk in filename is forbidden in ";
constexpr std::string_view includeCircle = "': circle is detected in ";

constexpr std::string_view badDynamic = "Dynamic block bad parameter '";
constexpr std::string_view namespaceUsed = "': namespace is used already in ";
constexpr std::string_view keyForbidden = "': [*] is forbidden in ";
constexpr std::string_view noParameter = "': no parameter found in ";

constexpr std::string_view badVariable = "Variable block bad parameter '";
constexpr std::string_view quoteInWord = "': ' is forbidden in variable in ";
constexpr std::string_view quoteNotClosed = "': could not find second ' as the last character in ";

} // namespace message

} // namespace zorvel
