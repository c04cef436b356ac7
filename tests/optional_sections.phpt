--TEST--
Optional sections: what a value or a key has to be, while parsing and in loops
--FILE--
<?php require __DIR__ . '/table.inc';
class Shown { public function __toString(): string { return '1'; } }
foreach ([ // the text behind the path, the values that are shown, those that are hidden
    ['', [true, 1, -1, 'a', '0.0', "\0", 0.5, [0], ['visible' => 1], new Shown, ['visible' => ['visible' => 0]]],
        [false, 0, '', '0', null, 0.0, [], ['visible' => 0, 1], ['visible' => []], ['visible' => null, 'a' => 1]]],
    [' active', ['active', "active\0x", true], ['Active', ' active', '', null, 1.5, ['active'], false, 1, new Shown]],
    ['  active', [' active', true], ['active']],
    [" 'it''s'", ["it''s"], ["it's", "it''s'"]],
    [" a'b", ["a'b", 0], ['a', 'b', '']],
    [" ''", ['', "\0", 0, true], ["''", false, null, []]],
    [' -3x', [-3, '-3x', true], [3, '-3', -3.0, false]],
    [" '0'", [0, '0', false], [true, '', null, 0.0]],
    [' -9223372036854775808', [PHP_INT_MIN], [0]],
    [' 9223372036854775808', [0, true], [PHP_INT_MAX, PHP_INT_MIN, false]],
] as [$text, $shown, $hidden]) {
    $section = fn (string $path) => "{optional $path$text}1{/optional}{!optional $path$text}0{/optional}";
    foreach ([...$shown, ...$hidden] as $i => $value)
        table(['v' => $value, 'l' => [$value]],
            [$section('v') . '{dynamic l}' . $section('*') . '{/dynamic}' => $i < count($shown) ? '11' : '00']);
}
$ref = 'yes';
$data = ['l' => [3 => 1, -3 => 2, "'3'" => 3, '' => 4], 's' => ['x' => ['y' => 1], [&$ref]], 'r' => &$ref, 'v' => 5];
table($data, [
    "{optional r}1{/optional}{optional r yes}0{/optional}{optional\tr}2{/optional}{optional v\t5}0{/optional}" => '12',
    '{optional x}no{/optional}{!optional x y}1{/optional}{optional x}{s}{dynamic l}{*}{/dynamic}{/optional}' => '1',
    '{dynamic l}{optional [*] 3}3{/optional}{!optional [*] 3}x{/optional}{/dynamic}' => '3xxx',
    "{dynamic i,l}{optional i::[*] '3'}{*}{/optional}{optional i::[*]}{*}{/optional}{/dynamic}" => '34',
    '{dynamic i,s}{optional *::y}{[*]}{*::y}{/optional}{!optional i::*::y}n{/optional}{/dynamic}' => 'x1n',
    '{dynamic s}{dynamic *}{optional *}1{/optional}{optional * yes}no{/optional}{/dynamic}{/dynamic}' => '11',
    '{optional *}0{/optional}{!optional *}0{/optional}{optional [*]}0{/optional}{!optional i::[*]}0{/optional}' => '',
    '{dynamic s}{optional i::*}0{/optional}{!optional i::*}0{/optional}{!optional i::[*]}0{/optional}{/dynamic}' => '',
]);
--EXPECT--
81 cases
