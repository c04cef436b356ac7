<?php

declare(strict_types=1);

namespace Zorvel\Bench;

use Closure;

/** Prints what was measured. */
final class Report
{
    private const string COMPARED = <<<'TEXT'
        Each page in a process of its own, all engines in turns in it. Compiled templates are warm, in files and in
        opcache, and none looks whether a template has changed. zorvel keeps nothing between two calls: it reads and
        parses its file each time; "zorvel, string" is given the text, which was read before, and parses it.
        "zorvel, bundle" takes it from the file of "zorvel bundle", with included files in place, which opcache holds;
        "view, bundle" is zorvel/view on that file, with all that it does with the data.
        "Heap trimmed": glibc returns memory at once, as it does until a process has freed a large block, which PHP's
        own start may do. "read file" is file_get_contents of the files, "escape only" the escaping of the values.
        "view's data" is what zorvel/view adds: it makes the data of the page into texts.

        TEXT;

    public static function head(): void
    {
        echo "\n", self::COMPARED, "\nOther engines: ", implode(', ', Engines::versions()), "\n";
        foreach (Engines::missing() as $missing) {
            echo "Not installed, so not measured: $missing (see bench/peers --help)\n";
        }
    }

    public static function setting(string $setting): void
    {
        echo "\n== ", $setting, "\n";
    }

    public static function results(Results $results): void
    {
        $time = static fn(string $page, string $case): string => Console::time($results->time($page, $case));
        $ratio = static fn(string $page, string $case): string => Console::ratio($results->ratio($page, $case, 'php'));
        self::matrix('Median time of one rendering', $results, $time);
        in_array('php', $results->cases(), true) && self::matrix('Ratio to hand-written PHP', $results, $ratio);
        self::growth($results);
        self::memory($results->memory);
    }

    /** @param list<Target> $targets */
    public static function targets(array $targets): void
    {
        $measured = array_values(array_filter($targets, static fn(Target $target): bool => $target->ratio !== null));
        $head = ['work', 'against', 'ratio', 'at most', 'aim', ''];
        Console::table('Targets, without JIT where nothing else is said', $head, array_map(
            static fn(Target $target): array => [
                $target->work,
                $target->against,
                Console::ratio($target->ratio),
                (string) $target->atMost,
                (string) $target->aim,
                $target->verdict(),
            ],
            $measured,
        ));
        $unmeasured = count($targets) - count($measured);
        echo $unmeasured === 0 ? '' : "\n$unmeasured more targets were not measured.\n";
    }

    /** @param Closure(string, string): string $cell of a page and a case */
    private static function matrix(string $title, Results $results, Closure $cell): void
    {
        $cases = $results->cases();
        $rows = array_map(
            static fn(string $page): array
                => [$page, ...array_map(static fn(string $case): string => $cell($page, $case), $cases)],
            array_keys($results->pages),
        );
        Console::table($title, ['page', ...array_map(Engines::label(...), $cases)], $rows);
    }

    private static function growth(Results $results): void
    {
        $rows = array_map(static fn(string $case): array => [
            Engines::label($case),
            Console::ratio($results->growth('catalogue', $case)),
            Console::ratio($results->growth('tags', $case)),
        ], $results->cases());
        $rows = array_values(array_filter($rows, static fn(array $row): bool => $row[1] . $row[2] !== ''));
        $rows === [] || Console::table('Time for 10,000 over the time for 1,000', ['', 'rows', 'values'], $rows);
    }

    /** @param array<string, Memory> $memory by engine */
    private static function memory(array $memory): void
    {
        $title = 'Memory of the process, 100,000 rows: resident before the call, peak in it, (peak - before) / output';
        $rows = array_map(static fn(string $engine, Memory $found): array => [
            Engines::label($engine),
            Console::megabytes($found->before),
            Console::megabytes($found->peak),
            Console::megabytes($found->output),
            Console::ratio($found->ratio()),
        ], array_keys($memory), $memory);
        $rows === [] || Console::table($title, ['', 'before', 'peak', 'output', 'ratio'], $rows);
    }
}
