--TEST--
Variable and filter tags: alternatives, default texts, and every type of value and every byte as PHP renders it
--FILE--
<?php require __DIR__ . '/table.inc';
class Name { public function __toString(): string { return "Ann\0Lee"; } }
$list = [$name = 'Ann'];
$types = ['n' => &$name, 'e' => '', 'nul' => null, 'no' => false, 'yes' => true, 'int' => -42, 'f' => .5, 'l' => &$list,
    'o' => new Name, 'z' => "a\0b", 'least' => PHP_INT_MIN, 'inf' => -INF, 'big' => 1e25, 'array' => [[]]];
$texts = 'Ann||||1|-42|0.5|Array|Ann|a|-9223372036854775808|-INF|1.0E+25|Array|';
$show = fn (string $prefix) => implode(array_map(fn ($name) => "{{$prefix}$name}|", array_keys($types)));
table(['in' => [$types]] + $types, [
    $show('') => $texts,
    '{dynamic in}' . $show('*::') . '{*}{/dynamic}' => "{$texts}Array",
    "{x}{x  }{a  x}{a n 'none'}{a b::c 'none'}{nul n 'none'}{a no 'none'}{e 'none'}" => '{x}{x}{a  x}Annnone',
    "{'plain {{text'}{''}{a ''}{a 'it's'}{a ' b::  ''}{a\v\f\n\t'x'}{n '::'}" => "plain {textit's b::  'xAnn",
    "{dynamic in}{*::x n}{x *::x ''}{*::x *::int}{*::e n}{*::x 'd'}{*::x}{x *::x}{n *::y}{/dynamic}" => 'Ann-42dAnn',
    "{dynamic in}{*::x e 'd'}|{i::* 'no loop'}|{x i::[*] 'no key'}|{*::x x [*]}{/dynamic}" => '|no loop|no key|0',
    "{*::a 'out'}{[*] ''}{x * int}{i::* 'of'}{x *}{*::a\0b::c 'd'}{x '\0d'}" => "out-42ofd\0d",
    ...array_fill_keys(["{a'b}", "{a'}", "{a b' 'c'}", "{a'b 'c}", "{n x'y::}"],
        ["Variable block bad parameter 'P': ' is forbidden in variable in "]),
    ...array_fill_keys(["{'}", "{a '}", "{a 'b}", "{a 'b' c}", "{a 'b::}"],
        ["Variable block bad parameter 'P': could not find second ' as the last character in "]),
]);
$each = fn ($path) => "{addslashes $path}|{htmlentities $path}|{htmlspecialchars $path}|{rawurlencode $path};";
$loop = fn ($path) => '{dynamic item,in}' . $each($path) . '{/dynamic}';
$escaped = fn ($text, $charset = 'ISO-8859-1') => addslashes($text) . '|'
    . strtok(htmlentities($text, ENT_COMPAT, $charset), "\0") . '|'
    . strtok(htmlspecialchars($text, ENT_COMPAT, $charset), "\0") . '|' . rawurlencode($text) . ';';
$bytes = array_map(fn ($byte) => 'a' . chr($byte), range(1, 255));
$special = ['s' => "<é'\"&amp;\\>", 'z' => "\"\0\"", 'a b' => '>', "'q'" => '&', 'bad' => "\xE9<"];
table($special + ['in' => ['k"&/' => $special + $types + ['only' => 'here']], 'bytes' => $bytes] + $types, [
    implode(array_map($each, array_keys($special))) => implode(array_map(fn ($v) => $escaped($v, 'UTF-8'), $special)),
    implode(array_map($each, ['no', 'yes', 'o', 'n', 'nul', 'array', 'x', 'e', '*', 'i::[*]'])) . $loop('*::x')
        . $loop('i::*') => str_repeat('|||;', 12),
    implode(array_map($loop, ['*::s', '*::bad', '*::z', 'item::[*]', '[*]', '*::int', '*::n', 'item::*', '*::nul'])) =>
        implode(array_map($escaped, [$special['s'], $special['bad'], '"', 'k"&/', 'k"&/', '-42', 'Ann', 'Array', ''])),
    '{dynamic in}' . $each('only') . '{/dynamic}' => '|||;',
    '{dynamic bytes}' . $each('*') . '{/dynamic}' => implode(array_map($escaped, $bytes)),
]);
$told = fn (callable $call) => preg_replace('/^\w+\(\): /', '', observed($call));
foreach (['utf-8', 'ISO-8859-1', 'KOI8-R', 'nonsense', ''] as $charset) {
    @ini_set('default_charset', $charset);
    foreach (['plain', 'a "b" & c', "<\xE9>", "a\0<"] as $text)
        check("'$text' in $charset", $told(fn () => zorvel($each('t'), ['t' => $text], true)), $told(fn () => $escaped($text, null)));
}
--EXPECT--
22 cases
