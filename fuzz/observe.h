#pragma once

#include <string>

#include <php.h>

#include "model.h"

/// The extension as it is called and seen from outside, without a line of PHP code.
namespace fuzz
{

/// Starts PHP for good, and counts its memory from the start.
void startPhp(const char* settings = "");

/// From now on PHP has the model's world, and no more: the classes of its objects, files in memory alone, and warnings
/// that are collected instead of printed. To be called once, while no request runs.
void enterModelWorld();

zend_function* findFunction(const char* name);

/// Whether a frame is that of the extension's function.
bool isExtensions(const zend_execute_data* frame);

/// PHP's value for a model's; the caller's to destroy.
zval toPhp(const model::Value& value);

/// False when an array, a reference or a scalar is not what it was made from. Objects are trusted.
bool isSame(const zval& value, const model::Value& made);

/// Calls a function as PHP code would, from a frame on the stack: an exception stays pending.
/// @return false when it bailed out; the request is over then
bool call(const char* function, zval* result, std::uint32_t count, zval* arguments);

/// What a call of the extension is seen to do. More warnings than one are all told.
struct Seen {
    model::Outcome outcome;
    bool bailedOut = false;
};
Seen observe(const std::string& source, bool inMemory, zval* data);

} // namespace fuzz
