--TEST--
The function: its signature, its arguments, and where it finds files
--FILE--
<?php require __DIR__ . '/table.inc';
echo wordwrap(trim(preg_replace('/\s+/', ' ', new ReflectionExtension('zorvel'))), 118), "\n";
foreach ([['a', 'b'], ['a', new Error], [[], []], ['a', [], []], [], ['a'], ['a', [], true, 1]] as $n => $arguments)
    check('arguments', observed(fn () => zorvel(...$arguments)),
        [$n < 4 ? 'TypeError' : 'ArgumentCountError', 'Error while parsing parameters']);
check('named arguments', zorvel(userData: ['n' => 1], string_mode: true, fileName: '{n}'), '1');
check('no name', observed(fn () => zorvel('', [])), [null, 'Could not open file ']);
table(['n' => 'Ann'], [
    '100%s%n.tpl' => ['Could not open file 100%s%n.tpl'],
    "main.tpl\0.tpl" => ['Could not open file main.tpl'],
    'data:,{n}{{.tpl' => 'Ann{.tpl',
    'late.tpl' => ['Missing closing tag in late.tpl'],
], ['main.tpl' => '{n}', 'late.tpl' => '{n}{include main.tpl}{optional n}' . str_repeat('x', 3 * CHUNK)]);
set_include_path(dirname(__DIR__));
check('include path', zorvel('LICENSE', []), file_get_contents(dirname(__DIR__) . '/LICENSE'));
--EXPECTF--
Extension [ <persistent> extension #%d zorvel version 2.0.0 ] { - Functions { Function [ <internal:zorvel> function
zorvel ] { - Parameters [3] { Parameter #0 [ <required> string $fileName ] Parameter #1 [ <required> array $userData ]
Parameter #2 [ <optional> bool $string_mode = false ] } - Return [ ?string ] } } }
4 cases
