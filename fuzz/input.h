#pragma once

#include <string>
#include <vector>

#include "model.h"

/// An input of the fuzzer: a few parts with a line of "--" between them, namely the data, the template, and files
/// that the template may include as in://2, in://3, …:
///
///     h[a[0'x'1'y']
///     --
///     {dynamic a}{*}{/dynamic}{include in://2}
///     --
///     more text
///
/// Any bytes mean something. The data is some letters, for error handlers, then "[" and pairs of a key and a value. A
/// key is one byte, some of them short for more, see below; "&" in front makes the element a reference. A value is
///
///     [ pairs ]        an array
///     ' text ' ` text `
///     0 to 9, t f m    integers, booleans, the smallest integer
///     d D              1.5 and 0.0
///     o act            an object with a text, in PHP one whose code turns against the call
///     p value          an object with that property and others
///     l value y value  the same, in PHP a lazy ghost and a lazy proxy
///     A pairs ]        an object with those properties, in PHP an ArrayObject, which has none
///
/// and null for whatever else. data.php reads the same.
namespace fuzz
{

struct Input {
    std::string data;
    std::string text;   ///< the template
    model::Files files; ///< in://1 is the template
};

Input readInput(const std::string& bytes);
model::Value readData(const std::string& text);

/// Nested loops and includes multiply; what takes minutes is no finding.
bool isSmall(const std::string& input);

} // namespace fuzz
