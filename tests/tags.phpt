--TEST--
Braces in text and in tags, keywords, and which closing tag closes what
--FILE--
<?php require __DIR__ . '/table.inc';
$data = ['n' => 'Ann', 'a{b' => 1, 'a{}c' => 2, 'a{' => 3, 'n{' => 4, "\1" => 5, 'rows' => [1, 2], 'include' => 6];
$behind = fn (string $tail) => array_map(fn ($length) => str_repeat('x', $length) . $tail,
    [...range(509, 513), ...range(2 * CHUNK - 4, 2 * CHUNK + 1)]);
table($data, [
    ...array_combine(['', '{n}}', 'text {n', '{n{', "\0{{"], ['', 'Ann}', 'text Ann', '4', "\0{"]),
    "no braces\r\n\0\x80\xFF\xC3\n" => "no braces\r\n\0\x80\xFF\xC3\n",
    "a{{b}}c}d}}}e}}}}f}\0{n}" => "a{b}c}d}}e}}f}\0Ann",
    "a{ b{\tc{\nd{\re{ n} {{n}} {{{n}}}" => "a{ b{\tc{\nd{\re{ n} {n} {Ann}",
    "{\fn}{\vn}{\1}{\2}{\v}{}{ }{" => "AnnAnn5{\2}{\v}{}{ }{",
    '{a{{b}{a{b}c}{a{}c}{a{ b}' => '11c}23',
    '{n' . str_repeat(' ', 2 * CHUNK) . '}' => 'Ann',
    ...array_combine($behind('{n}{{}}'), $behind('Ann{}')),
    '{includefile}{optionalrows}y{/optionalx}{dynamicrows}*{/dynamic}{htmlentitiesn}' => 'FAnny**Ann',
    "{include\tfile  }{include   }|{addslashes\n\v\fn\r}" => 'FAnn|Ann',
    "{\vinclude x}{Include x}{/Dynamic}{/include}{!dynamic}" => '6{Include x}{/Dynamic}{/include}{!dynamic}',
    '{optional n}{rdynamic rows}{dynamic i,rows}{i::*}{/dynamic i}{*},{/rdynamic}{/optional' => '122,121,',
    ...array_fill_keys(['{optional n}', '{!optional x}a', '{dynamic rows}', '{rdynamic x}',
        '{dynamic x}{dynamic x}{/dynamic}'], ['Missing closing tag in ']),
    ...array_fill_keys(['{/optional}', '{dynamic x}{/optional}', '{rdynamic x}{/optional}', 'a{/optional}{a::}',
        '{optional n}{dynamic x}{/dynamic}{/optional}{/optional}'], ['Unexpected closing optional tag in ']),
    ...array_fill_keys(['a{/dynamic}', '{optional n}{/dynamic}', '{rdynamic x}{/dynamic}', "{optional}\0{/dynamic}",
        '{dynamic rows}{optional n}{/dynamic}'], ['Unexpected closing dynamic tag in ']),
    ...array_fill_keys(['{/rdynamic x}', '{optional x}{/rdynamic}', '{dynamic a}{/rdynamic}', '{!optional}{/rdynamic}'],
        ['Unexpected closing rdynamic tag in ']),
], ['file' => 'F{n}']);
--EXPECT--
45 cases
