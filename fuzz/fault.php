<?php

declare(strict_types=1);

require 'data.php';

function act(string $name, Data $data): void
{
    match ($name) {
        'throw' => throw new Exception('thrown'),
        'typeError' => throw new TypeError('thrown'),
        'exit' => exit,
        'fatal' => eval('function strlen() {}'),
        'overwrite' => $data->turn('e'),
        'grow' => $data->turn('g'),
        'unset' => $data->turn('u'),
        'reset' => $data->turn('r'),
        'extend' => $data->turn('d'),
        'close' => array_map(fclose(...), get_resources('stream')),
        'call' => $data->callAgain(),
        'collect' => gc_collect_cycles(),
        'suspend' => Fiber::suspend(),
        '' => null,
    };
}

/** A call, and what is wrong with how it tells of its end. */
function rendered(string $source, Data $data, bool $inMemory, bool $throws): string
{
    $warnings = 0;
    $isOver = false;
    set_error_handler(function (int $level, string $message) use (&$warnings, &$isOver): void {
        $isOver = isOurs($message);
        $warnings += (int) $isOver;
        Entry::reached();
    });
    try {
        $page = zorvel($source, $data->root, $inMemory);
    } catch (Throwable) {
        return $warnings > 0 && !$isOver ? 'warned and threw' : '';
    } finally {
        restore_error_handler();
    }
    if ($throws && Entry::$hasActed) {
        return 'lost an exception';
    }
    return $warnings !== (int) ($page === null) ? "$warnings warnings" : '';
}

/** Renders an input and lets one entry into user code act, and says what is wrong. */
function strike(string $input, bool $inMemory, string $act, int $point): string
{
    [$dataText, $text] = readInput($input);
    $data = new Data($dataText);
    Entry::$count = 0;
    Entry::$hasActed = false;
    Trap::$calls = 0;
    Entry::$act = static function () use ($point, $act, $data): void {
        if (Entry::$count === $point) {
            Entry::$hasActed = true;
            act($act, $data);
        }
    };
    $wrong = '';
    $fiber = new Fiber(function () use ($inMemory, $text, $data, $act, &$wrong): void {
        $throws = in_array($act, ['throw', 'typeError'], true);
        $wrong = rendered($inMemory ? $text : 'in://1', $data, $inMemory, $throws);
    });
    try {
        $fiber->start();
    } finally {
        unset($fiber, $data);
        Entry::$act = null;
        restore_error_handler();
    }
    gc_collect_cycles();
    return $wrong;
}

/** How many entries into user code there have been. */
function entries(): int
{
    return Entry::$count;
}

/** True when a page is as it should be. */
function control(): bool
{
    Files::$texts = ['c' => '{dynamic n,a}{htmlspecialchars n::*}{include in://d}{/dynamic}', 'd' => '{optional [*] 1}!{/optional}'];
    return zorvel('in://c', ['a' => ['<', '>']]) === '&lt;&gt;!';
}
