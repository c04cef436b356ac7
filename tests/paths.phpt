--TEST--
The syntax of parameters with every fault's message, and what paths find in the data
--FILE--
<?php require __DIR__ . '/table.inc';
$keys = [0 => 'zero', '00' => 'A', '007' => 'B', '0x1' => 'C', '4294967296' => 'D', -1 => 'E', 4294967295 => 'F',
    '.*' => 'H', '+5' => 'I', '99999999999999999999' => 'J', 'é' => 'K', 'z' => "L\0x", '-0' => 'M', 2 => 'two', '2nd' => 'N', '2' . "\0" => 'O'];
$data = ['a' => ['b' => ['c' => 5], 's' => 'text', 'o' => (object) ['p' => 1, '0' => 2], 'r' => &$keys, 'k' => $keys],
    'l' => [$keys], 'o' => [(object) ['p' => 1], &$keys], '0', ['x' => '1'], '00' => 'root 00', 'a:b' => 'colon',
    '' => 'empty', '*' => 'star', 'x' => ['.*' => 'dot star'], ':' => 'one', 'é' => ["\xFF" => 'bytes']];
table($data, [
    '{a::b::c}{a:b}{x::.*}{:}{a::k::4294967295}{a::k::0}{a::k::007}{a::b}' => '5colondot staroneFzeroBArray',
    "{é::\xFF}{optional }{include x::.*}yes{/optional}{*}{[*]}{n::*::b}{.*::x}" => 'bytesyes',
    "{0 1::x 'no index at the root'}{00}" => 'no index at the rootroot 00',
    '{a::b::missing}{a::s::x}{a::s::0}{a::x::y}{a::r::007}' => '{a::b::missing}{a::s::x}{a::s::0}{a::x::y}{a::r::007}',
    "{a::o::p a::o::0 'object'}{dynamic o}{*::p *::0 *::00 'none'}{/dynamic}" => 'objectnonenone',
    "{a::k::2nd}{dynamic l}{*::2}{*::2nd}{*::2\0}{/dynamic}{a::k::2}" => 'NtwoNOtwo',
    '{dynamic l}{*::0}{*::00}{*::007}{.*::é}|{*::z}|{*::4294967295}{/dynamic}' => 'zeroABK|L|F',
    "{dynamic l}{*::4294967296 *::-1 '-'}{*::-0}{*::+5}{*::0x1}{*::99999999999999999999}{*::.*}{/dynamic}" => '-MICJH',
    "{dynamic l}{*::z::0 *::z::x *::0::0 'none'}{/dynamic}{a b:: 'x'}" => 'noneArray',
    ...array_fill_keys(["{none b:: 'x'}", '{optional b:: x}'], ["Bad formated parameter'b::': too many : in "]),
    ...array_fill_keys(['{addslashes a b::}', '{include a b::}', '{dynamic i,a b::}', '{htmlentities a b::}'],
        ["Bad formated parameter'a b::': too many : in "]),
    ...array_fill_keys(['{a::}', '{::a}', '{a:::b}', '{::}', '{:::}', '{*::::*}', '{::[*]}', '{*::*:::a}'],
        ["Bad formated parameter'P': too many : in "]),
    ...array_fill_keys(['{a::*::b::*}', '{a::[*]::*}', '{*::*::[*]}', '{::*::*}', '{a::[*]::b::*}'],
        ["Bad formated parameter'P': too many * in "]),
    ...array_fill_keys(['{a::b::c::*::d}', '{a::b::c::[*]}', '{.*::a::b::*}', '{b::*::x::y::[*]}'],
        ["Bad formated parameter'P': too many namespaces in "]),
    ...array_fill_keys(['{[*]::x}', '{n::[*]::x}', '{*::[*]::x}'], ['Bad formated parameter: [*] must be last in ']),
    ...array_fill_keys(['{*::*}', '{.*::*}', '{[*]::*}', '{*::[*]}', '{.*::[*]}', '{*::a::*}', '{[*]::*::x}'],
        ['Bad formated parameter: too many * in ']),
    ...array_fill_keys(['{a::b::*::c}', '{a::b::[*]}'], ['Bad formated parameter: too many namespaces in ']),
]);
--EXPECT--
44 cases
