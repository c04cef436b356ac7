<?php

declare(strict_types=1);

namespace Zorvel\Bench;

/** Prints tables. */
final class Console
{
    /**
     * @param list<string> $head
     * @param list<list<string>> $rows
     */
    public static function table(string $title, array $head, array $rows): void
    {
        $columns = array_map(self::column(...), $head, ...$rows);
        self::progress('');
        echo "\n$title\n\n";
        foreach (array_map(null, ...$columns) as $line) {
            echo rtrim(implode('  ', $line)), "\n";
        }
    }

    /** Shows on a terminal that something moves. */
    public static function progress(string $what): void
    {
        stream_isatty(STDERR) && fwrite(STDERR, "\r\e[K$what ");
    }

    public static function time(?float $seconds): string
    {
        return match (true) {
            $seconds === null => '',
            $seconds < 1e-3 => sprintf('%.1f µs', $seconds * 1e6),
            default => sprintf('%.2f ms', $seconds * 1e3),
        };
    }

    public static function megabytes(int $bytes): string
    {
        return sprintf('%.1f MB', $bytes / 1e6);
    }

    public static function ratio(?float $ratio): string
    {
        return match (true) {
            $ratio === null => '',
            $ratio < 0.01 => '<0.01',
            default => sprintf('%.2f', $ratio),
        };
    }

    /** @return list<string> the cells of one column in equal width: head, rule, body; numbers to the right */
    private static function column(string $head, string ...$body): array
    {
        $width = max(array_map(mb_strlen(...), [$head, ...$body]));
        $side = preg_grep('/^[a-z]/i', $body) === [] ? STR_PAD_LEFT : STR_PAD_RIGHT;

        return array_map(
            static fn(string $cell): string => mb_str_pad($cell, $width, ' ', $side),
            [$head, str_repeat('-', $width), ...array_values($body)],
        );
    }
}
