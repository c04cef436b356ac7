<?php

/** Renders a million pages or more in one process and says by how much its memory has grown. */

declare(strict_types=1);

const TEMPLATES = [
    'Hello {name}!',
    "{nick name 'nobody'} {n} {htmlspecialchars name}",
    '{dynamic rows}{[*]}={addslashes *::t}{optional *::on}!{/optional}{/dynamic}',
    '{dynamic r,rows}{dynamic r::*::list}{*},{/dynamic}{r::*::x *::x \'none\'}{/dynamic}',
    '{include data:,{name}}{include missing}',
    '{dynamic rows}{/optional}',
    '{optional rows}{optional none}{/optional}',
    '{a::}',
];

/** @return array{int, int} in bytes: what PHP uses, what the process has resident */
function memory(): array
{
    preg_match('/^VmRSS:\s+(\d+)/m', (string) file_get_contents('/proc/self/status'), $resident);
    return [memory_get_usage(), 1024 * (int) $resident[1]];
}

function renderAll(int $calls): void
{
    $data = ['name' => 'Ann & Lee', 'n' => 42, 'rows' => [
        ['t' => "it's", 'on' => true, 'list' => [1, 2, 3]],
        ['t' => 'plain', 'list' => ['x' => new ArrayObject()]],
    ]];
    $templates = count(TEMPLATES);
    for ($call = 0; $call < $calls; ++$call) {
        try {
            @zorvel(TEMPLATES[$call % $templates], $data, true);
        } catch (Error) {
        }
    }
}

$calls = (int) ($argv[1] ?? 10_000_000);
renderAll(intdiv($calls, 100));
[$used, $resident] = memory();
renderAll($calls);
[$usedNow, $residentNow] = memory();
printf("%d calls, %+d bytes in PHP, %+d bytes resident\n", $calls, $usedNow - $used, $residentNow - $resident);
exit($usedNow - $used > 1 << 12 || $residentNow - $resident > 1 << 20 ? 1 : 0);
