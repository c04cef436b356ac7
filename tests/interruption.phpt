--TEST--
A page in the making lets signal handlers in, between elements and between tags
--EXTENSIONS--
pcntl
posix
--FILE--
<?php require __DIR__ . '/table.inc';
/** Renders with a signal on its way; the handler changes what the page shows from then on. */
function signalled(string $template, array $data, callable $handler): mixed
{
    pcntl_signal(SIGUSR1, $handler);
    exec('(sleep 0.1; kill -USR1 ' . getmypid() . ') > /dev/null 2>&1 &');
    try {
        return zorvel($template, $data, true);
    } catch (Exception $thrown) {
        return $thrown->getMessage();
    }
}

pcntl_async_signals(true);
$late = 'n';
$loops = fn (string $body) => "{dynamic r}{dynamic r}{dynamic r}$body{/dynamic}{/dynamic}{/dynamic}";
$data = ['r' => range(1, 200), 'late' => &$late];
$turn = function () use (&$late) { $late = 'y'; echo zorvel("{late}\n", ['late' => 'handled'], true); };
check('rendering', count_chars(signalled($loops('{*::x late}'), $data, $turn), 3), 'ny');
$late = 'n';
check('parsing', count_chars(signalled(str_repeat('{include none}{late}', 200_000), $data, $turn), 3), 'ny');
$rest = &$data['r'];
$empty = function () use (&$rest) { $rest = []; };
check('emptying', strlen(signalled($loops('{*::x late}'), $data, $empty)) < 200 ** 3, true);
$rest = range(1, 600);
check('throwing', signalled($loops('{*::x}'), $data, fn () => throw new Exception('stopped')), 'stopped');
pcntl_signal(SIGUSR1, fn () => exit("exit\n"));
exec('(sleep 0.1; kill -USR1 ' . getmypid() . ') > /dev/null 2>&1 &');
zorvel($loops('{*::x}'), $data, true);
echo 'not reached';
--EXPECT--
handled
handled
exit
0 cases
