<?php

declare(strict_types=1);

namespace Zorvel\Bench;

use Closure;

/** Prints what was measured. */
final class Report
{
    public static function head(): void
    {
        $jit = opcache_get_status(false)['jit']['on'] ?? false;
        echo "\n== PHP ", PHP_VERSION, ' with opcache, ', $jit ? 'with JIT' : 'without JIT', "\n\n";
        echo 'Other engines: ', implode(', ', Engines::versions()), "\n";
        foreach (Engines::missing() as $missing) {
            echo "Missing, for the package registry did not give it: $missing\n";
        }
    }

    /** @param array<string, Samples> $pages by name */
    public static function pages(array $pages): void
    {
        self::matrix('Median time of one rendering', $pages, static fn (Samples $page, string $case): string =>
            Console::time($page->time($case)));
        if (reset($pages)->time('php') === null) {
            return;
        }
        self::matrix('Ratio to hand-written PHP', $pages, static fn (Samples $page, string $case): string =>
            Console::ratio($page->ratio($case, 'php')));
    }

    /** @param array<string, array<string, float>> $growth by engine and kind of page */
    public static function growth(array $growth): void
    {
        $title = 'Time for 10,000 rows or values over the time for 1,000';
        self::table($title, $growth, static fn (array $kinds): array => array_map(Console::ratio(...), $kinds));
    }

    /** @param array<string, Memory> $memory by engine */
    public static function memory(array $memory): void
    {
        $title = 'Memory of the process, 100,000 rows: resident before the call, peak in it, (peak - before) / output';
        self::table($title, $memory, static fn (Memory $engine): array => [
            'before' => Console::megabytes($engine->before),
            'peak' => Console::megabytes($engine->peak),
            'output' => Console::megabytes($engine->output),
            'ratio' => Console::ratio($engine->ratio()),
        ]);
    }

    /** @param list<Target> $targets */
    public static function targets(array $targets): void
    {
        Console::table('Targets', ['work', 'against', 'ratio', 'at most', 'aim', ''], array_map(
            static fn (Target $target): array => [
                $target->work,
                $target->against,
                Console::ratio($target->ratio),
                (string) $target->atMost,
                (string) $target->aim,
                $target->verdict(),
            ],
            $targets,
        ));
    }

    /**
     * @param array<string, Samples> $pages by name
     * @param Closure(Samples, string): string $cell
     */
    private static function matrix(string $title, array $pages, Closure $cell): void
    {
        $measured = array_merge(...array_values(array_map(static fn (Samples $page): array => $page->cases(), $pages)));
        $cases = array_values(array_intersect(array_keys(Engines::LABELS), $measured));
        $rows = array_map(
            static fn (string $name): array =>
                [$name, ...array_map(static fn (string $case): string => $cell($pages[$name], $case), $cases)],
            array_keys($pages),
        );
        Console::table($title, ['page', ...array_map(Engines::label(...), $cases)], $rows);
    }

    /**
     * @param array<string, mixed> $figures by engine
     * @param Closure(mixed): array<string, string> $cells
     */
    private static function table(string $title, array $figures, Closure $cells): void
    {
        if ($figures === []) {
            return;
        }
        $rows = array_map($cells, $figures);
        $lines = array_map(
            static fn (string $id, array $row): array => [Engines::label($id), ...array_values($row)],
            array_keys($rows),
            $rows,
        );
        Console::table($title, ['', ...array_keys(reset($rows))], $lines);
    }
}
