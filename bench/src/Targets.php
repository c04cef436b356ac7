<?php

declare(strict_types=1);

namespace Zorvel\Bench;

/** All that zorvel is to reach. */
final class Targets
{
    private const array COMPILED = ['twig', 'latte', 'smarty', 'mustache'];

    /**
     * @param array<string, Samples> $pages by name
     * @param array<string, float> $growth by kind of page
     * @return list<Target>
     */
    public static function all(array $pages, array $growth, ?Memory $memory): array
    {
        $tenth = $pages['catalogue-1000'] ?? null;
        $every = $pages['catalogue-1000-escaped'] ?? null;
        $small = $pages['small'] ?? null;
        $file = static fn (string $page): ?float => ($pages[$page] ?? null)?->ratio('zorvel', 'file');

        return [
            new Target('1,000 rows, one in ten escaped', 'PHP', $tenth?->ratio('zorvel', 'php'), 0.65, 0.5),
            new Target('1,000 rows, all escaped', 'PHP', $every?->ratio('zorvel', 'php'), 1.0, 0.75),
            self::againstFastest('1,000 rows, one in ten escaped', $tenth, 0.45, 0.3),
            self::againstFastest('1,000 rows, all escaped', $every, 0.45, 0.3),
            self::againstFastest('small page', $small, 0.8, 0.6),
            new Target('small page', 'reading the file', $file('small'), 2.0, 1.6),
            new Target('50 KB of text', 'reading the file', $file('text-50k'), 4.0, 2.5),
            new Target('200 KB of text', 'reading the file', $file('text-200k'), 10.0, 5.0),
            new Target('10,000 rows', '1,000 rows', $growth['rows'] ?? null, 11.0, 10.0),
            new Target('10,000 values', '1,000 values', $growth['values'] ?? null, 11.0, 10.0),
            new Target('memory for 100,000 rows', 'size of the output', $memory?->ratio(), 2.2, 1.5),
        ];
    }

    private static function againstFastest(string $work, ?Samples $page, float $atMost, float $aim): Target
    {
        $fastest = $page?->fastest(self::COMPILED);
        $against = 'fastest of the others' . ($fastest === null ? '' : ' (' . Engines::label($fastest) . ')');

        return new Target($work, $against, $fastest === null ? null : $page->ratio('zorvel', $fastest), $atMost, $aim);
    }
}
