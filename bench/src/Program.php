<?php

declare(strict_types=1);

namespace Zorvel\Bench;

use RuntimeException;

/** What script/bench starts: reads the options and does as they say. */
final class Program
{
    /** @param array<string, string|false> $options */
    public static function run(array $options): void
    {
        if (isset($options['memory'])) {
            Memory::print($options['memory']);

            return;
        }

        $quick = isset($options['quick']);
        $installed = Engines::installed();
        $engines = self::chosen('engine', array_keys($installed), $options['only'] ?? null);
        $pages = self::chosen('page', self::pages($quick), $options['page'] ?? null);
        Templates::prepare($installed);

        $benchmark = new Benchmark($quick ? new Sampler(5, 0.01) : new Sampler(11, 0.02), $engines);
        isset($options['repeat'])
            ? array_walk($pages, static fn (string $page) => $benchmark->repeat($page, (int) $options['repeat']))
            : self::measure($benchmark, $pages, $options);
    }

    /**
     * @param list<string> $all
     * @param ?string $names some of them, separated by commas
     * @return list<string>
     */
    private static function chosen(string $what, array $all, ?string $names): array
    {
        $chosen = $names === null ? $all : explode(',', $names);
        foreach (array_diff($chosen, $all) as $unknown) {
            throw new RuntimeException("There is no $what $unknown; there are " . implode(', ', $all) . '.');
        }

        return $chosen;
    }

    /** @return list<string> */
    private static function pages(bool $quick): array
    {
        return array_values(array_filter(
            Pages::names(),
            static fn (string $name): bool => !$quick || !str_contains($name, '10000'),
        ));
    }

    /**
     * @param list<string> $pages
     * @param array<string, string|false> $options
     */
    private static function measure(Benchmark $benchmark, array $pages, array $options): void
    {
        Report::head();
        array_map($benchmark->check(...), $pages);
        $samples = array_combine($pages, array_map($benchmark->measure(...), $pages));
        Report::pages($samples);

        $full = isset($options['picture']);
        $growth = $full ? $benchmark->growth() : [];
        $memory = $full ? $benchmark->memory() : [];
        Report::growth($growth);
        Report::memory($memory);
        if (isset($options['targets'])) {
            Report::targets(Targets::all($samples, $growth['zorvel'] ?? [], $memory['zorvel'] ?? null));
        }
        if ($full) {
            Chart::write($options['picture'], $samples);
        }
    }
}
