--TEST--
Large, deep and binary input, and user code that interferes
--FILE--
<?php require __DIR__ . '/table.inc';
class Emptier { public function __toString(): string { return count($GLOBALS['shared'] = []) . 'x'; } }
class Flaky
{
    public $context;
    private array $reads = [false, 'pa', false, 'ge', ''];
    public function stream_open(): bool { return true; }
    public function stream_read(): string|false { return array_shift($this->reads); }
    public function stream_eof(): bool { return $this->reads === []; }
    public function stream_set_option(): bool { return false; }
}
class Thrower { public function __toString(): string { throw new Exception; } }
$bytes = str_repeat("\xC3\xA9<\xFF", 1 << 18);
$deep = json_decode(str_repeat('{"s": [', 200) . '"leaf"' . str_repeat(']}', 200), true);
table(['d' => $deep], [
    "$bytes\0" . '{' . $bytes => "$bytes\0" . '{' . $bytes . '}',
    '{dynamic d::s}' . str_repeat('{dynamic *::s}', 199) . '{*}' . str_repeat('{/dynamic}', 200) => 'leaf',
    str_repeat('{optional d}{!optional x}', 100) . 'x' . str_repeat('{/optional}', 200) => 'x',
    str_repeat('}}{{', 1 << 18) . str_repeat('}', 1 << 20) => str_repeat('}{', 1 << 18) . str_repeat('}', 1 << 19),
    'deep.tpl' => ['Template is nested too deeply in '],
], ['deep.tpl' => str_repeat('{optional d}', 1 << 18)]);
$many = range(1, 100_000);
check('many', zorvel('{rdynamic l}{*},{/rdynamic}', ['l' => $many], true), implode(',', array_reverse($many)) . ',');
check('large', zorvel('{v}{dynamic l}{htmlspecialchars *}{/dynamic}', ['v' => $bytes, 'l' => [$bytes]], true),
    $bytes . htmlspecialchars($bytes, ENT_COMPAT, 'ISO-8859-1'));
check('unreadable', zorvel('php://stdout', []), '');
stream_wrapper_register('flaky', Flaky::class);
check('reads that fail now and then', observed(fn () => zorvel('flaky://', [])), ['page']);
$shared = [new Emptier, str_repeat('y', 3), 'z'];
check('emptied', observed(fn () => zorvel('{dynamic l}{*}{/dynamic}{l}', ['l' => &$shared], true)), ['0xyyyzArray']);
foreach (['{l::o}', '{dynamic l}{*}{/dynamic}', '{dynamic l}{htmlentities *}{/dynamic}'] as $template)
    check($template, observed(fn () => zorvel($template, ['l' => ['o' => new Thrower]], true)), [Exception::class]);
$holding = '{addslashes t}{htmlentities t}{t}{l}{dynamic n,rows}{addslashes n::*::t}{n::*}{n::*::t}'
    . '{dynamic n::*::l}{*}{/dynamic}{dynamic n::*::o}{*}{/dynamic}{/dynamic}{include data:,{t}}';
$page = function () use ($holding): void {
    $row = ['t' => str_repeat('"', 9), 'l' => range(1, 9)];
    @zorvel($holding, ['rows' => [$row + ['o' => ['num' => new ArrayObject($row)]]]] + $row, true);
    @zorvel("{$holding}{/optional}", $row, true);
};
$kept = function () use ($page): int {
    $before = memory_get_usage();
    array_map($page, range(1, 9));
    return memory_get_usage() - $before;
};
check('memory kept', min($kept(), $kept(), $kept()), 0); // the first time PHP makes something of its own
$thrower = fn () => set_error_handler(fn () => throw new Exception);
check('thrown', observed(fn () => [$thrower(), zorvel('{/optional}', [], true)]), [Exception::class]);
--EXPECT--
5 cases
