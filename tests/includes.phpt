--TEST--
Included files: their names, their circles, and where their faults are reported
--FILE--
<?php require __DIR__ . '/table.inc';
$ref = 'inc';
$circle = fn (string $name, string $source) => ["Include block bad parameter '$name': circle is detected in $source"];
$files = ['inc' => 'I{n}', 'loop' => '{dynamic i,r}{optional [*] 1}{*}{/optional}{i::*}:{/dynamic}', 'x' => '{*}*',
    'long' => str_repeat('x', CHUNK - 1) . '{n}' . str_repeat('y', CHUNK) . '{', 'self' => '{include self}',
    'v.tpl' => '{include v}', 'a' => '{include b}', 'b' => '{include a}', 'dot.tpl' => '{include ./dot.tpl}',
    'open' => '{optional n}', 'end' => '{/optional}', 'fault' => '{include bad}', 'bad' => '{a::}', 'int' => 'named int', '5' => 'named 5'];
foreach (range(0, 60) as $i)
    $files["chain$i"] = "$i{include chain" . $i + 1 . '}';
$data = ['n' => 'Ann', 'r' => [1, 2], 'in' => ['f' => 'inc', 'r' => &$ref, 'e' => ''], 'z' => "inc\0x", 'v' => 'v.tpl', 'int' => 5];
table($data, [
    '<{include inc}>{include in::f}{include z}{n}{optional x}{include inc}{/optional}' => '<IAnn>IAnnIAnnAnn',
    '<{include in::e}{include missing}{include in::x}{include in}{include in::r}{include *.tpl}>' => '<>',
    '{include int}' => 'named int',
    '{dynamic i,r}{include loop}{include x}{/dynamic}' => '1:21:1*2:22:2*',
    '{include long}' => str_repeat('x', CHUNK - 1) . 'Ann' . str_repeat('y', CHUNK) . '{',
    '{include chain0}' => implode(range(0, 60)),
    '{include}' => ['Include block bad parameter: no parameter found in '],
    '{include r::*}' => ["Include block bad parameter 'r::*': asterisk in filename is forbidden in "],
    '{include [*]}' => ["Include block bad parameter '[*]': asterisk in filename is forbidden in "],
    '{include self}' => $circle('self', 'self'),
    'v.tpl' => $circle('v', 'v.tpl'),
    '{include a}' => $circle('a', 'b'),
    'dot.tpl' => $circle('./dot.tpl', './dot.tpl'),
    '{optional n}{include open}{/optional}' => ['Missing closing tag in open'],
    '{optional n}{include end}' => ['Unexpected closing optional tag in end'],
    '{optional x}{include inc}{include fault}{/optional}' => ["Bad formated parameter'a::': too many : in bad"],
    '{include inc}{/optional}' => ['Unexpected closing optional tag in '],
], $files);
--EXPECT--
17 cases
