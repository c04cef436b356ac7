--TEST--
Loops forwards and backwards, their names, keys and nesting, and the element "num"
--FILE--
<?php require __DIR__ . '/table.inc';
class Own { public $p; }
class Row { public int $unset; public $p = 1; public ?int $q = null; private $r = [3]; }
$rows = ['x' => ['t' => 8, 's' => [1, 2]], 'y' => ['t' => 9, 's' => ['k' => 'v'], 'n' => 3], ['t' => 4]];
end($rows);
$num = ['num' => ['a', 'b'], 'total' => 5];
$one = ['num' => 5, 'ref' => &$num, 'o' => new Row, 'on' => ['num' => new Row], 'rn' => ['num' => &$num], 'n' => $num];
$own = fn () => [$o = new Own, $a = [1], $o->p = &$a][0];
$data = ['r' => $rows, 'l' => [10, 20], 'keys' => [5 => 'a', 'k' => 'b', -1 => 'c', "n\0l" => 'd', '' => 'e'],
    'in' => [['a' => $one] + $one], 's' => 's', 'none' => [], 'refs' => [&$num], 'own' => [['o' => ['num' => $own()]]], 'five' => $one] + $one;
$walk = fn (string ...$paths) => implode(array_map(fn ($path) => "{dynamic $path}[{[*]}={*}]{/dynamic}", $paths));
table($data, [
    '{dynamic l}{[*]}={*},{/dynamic}{rdynamic l}{[*]}={*},{/rdynamic}' => '0=10,1=20,1=20,0=10,',
    $walk('keys') => '[5=a][k=b][18446744073709551615=c][n=d][=e]',
    '{dynamic i,r}{dynamic j,i::*::s}{i::[*]}{i::*::t}{[*]}{j::*};{/dynamic}{*::t}{/dynamic}' => 'x801;x812;8y9kv;94',
    '{rdynamic i,r}{rdynamic *::s}{i::[*]}{[*]}{*},{/rdynamic}{i::*::n *::t}{/rdynamic}' => '4ykv,3x12,x01,8',
    '{dynamic i,r}{/dynamic}{dynamic i,l}{i::*}{/dynamic}{dynamic i , r}no{/dynamic}' => '1020',
    '{dynamic i,x}{dynamic i,l}no{/dynamic}{/dynamic}{dynamic l,x,l}no{/dynamic}{dynamic ,l}{*}{/dynamic}' => '1020',
    $walk('s', 'none', 'o', 'five', 'on', 'x', '*', '*::l', 'i::*') . '{rdynamic x}no{a 0}{/rdynamic}' => '',
    $walk('n', 'ref') . '{rdynamic rn}{[*]}{/rdynamic}' => '[0=a][1=b][num=Array][total=5]totalnum',
    '{dynamic refs}{*}' . $walk('*', 'i::*', '*::n') . '{*::num},{/dynamic}{dynamic l}' . $walk('*') . '{/dynamic}' =>
        'Array,',
    '{dynamic in}' . $walk('*::n', '*::ref', '*::a', '*::rn', '*::on', '*::o', 'x::*') . '{/dynamic}' =>
        '[0=a][1=b][p=1][q=][=Array]',
    "{dynamic own}{dynamic *::o}{[*]}={*::x *::0 'none'};{/dynamic}{/dynamic}" => 'p=none;',
    ...array_fill_keys(['{dynamic i,l}{dynamic i,o}', '{dynamic i,l}{rdynamic j,l}{optional x}{dynamic i,o}'],
        ["Dynamic block bad parameter 'o': namespace is used already in "]),
    '{rdynamic i,[*]}' => ["Dynamic block bad parameter '[*]': [*] is forbidden in "],
    ...array_fill_keys(['{dynamic}', '{rdynamic i,}'], ["Dynamic block bad parameter '': no parameter found in "]),
]);
--EXPECT--
16 cases
