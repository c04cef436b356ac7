<?php

declare(strict_types=1);

require 'data.php';

/** What is wrong with a call, and the page. */
function page(string $text, string $dataText, bool $inMemory): array
{
    Trap::$calls = 0;
    $data = new Data($dataText);
    $warnings = 0;
    set_error_handler(function (int $level, string $message) use ($data, $dataText, &$warnings): void {
        $warnings += (int) isOurs($message);
        match ($dataText[0] ?? '') {
            'h' => $data->turn('e'),
            'H' => throw new Exception(),
            default => null,
        };
    });
    $before = strpbrk($dataText, 'hHolpyA') === false ? serialize($data->root) : null;
    $wrong = [];
    try {
        $page = zorvel($text, $data->root, $inMemory);
        $wrong[] = $warnings !== (int) ($page === null) ? "$warnings warnings" : '';
    } catch (Throwable) {
        $wrong[] = $warnings > 0 && $dataText[0] !== 'H' ? 'warned and threw' : '';
    } finally {
        restore_error_handler();
    }
    $wrong[] = $before !== null && $before !== serialize($data->root) ? 'changed the data' : '';
    return [implode(' ', array_filter($wrong)), $page ?? null];
}

/** Renders an input as text and as a file, and says what is wrong. */
function check(string $input): string
{
    [$data, $text] = readInput($input);
    [$wrong, $page] = page($text, $data, true);
    [$wrongOfFile, $pageOfFile] = page('in://1', $data, false);
    // A throwing handler hears of a stream that cannot be closed, and a text has none.
    $mayDiffer = str_contains($text, 'include') || (str_starts_with($data, 'H') && str_contains($data, 'oc'));
    $isSame = $page === $pageOfFile || $mayDiffer;
    $wrong .= $wrongOfFile . ($isSame ? '' : 'the file and the text differ');
    gc_collect_cycles();
    return $wrong;
}
