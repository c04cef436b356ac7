<?php

declare(strict_types=1);

namespace Zorvel\Bench;

/** What was measured with the JIT on or off. */
final readonly class Results
{
    /**
     * @param array<string, Samples> $pages by name
     * @param array<string, Memory> $memory by engine
     */
    public function __construct(public array $pages, public array $memory) {}

    /** @return list<string> what was measured for any page, in the order of the tables */
    public function cases(): array
    {
        $measured = array_map(static fn(Samples $page): array => $page->cases(), array_values($this->pages));

        return array_values(array_intersect(array_keys(Engines::LABELS), array_merge(...$measured)));
    }

    public function time(string $page, string $case): ?float
    {
        return ($this->pages[$page] ?? null)?->time($case);
    }

    public function ratio(string $page, string $case, string ...$bases): ?float
    {
        return ($this->pages[$page] ?? null)?->ratio($case, ...$bases);
    }

    /** The time for ten times the work over the time for the work; the two were measured in processes of their own. */
    public function growth(string $kind, string $case): ?float
    {
        return self::quotient($this->time("$kind-10000", $case), $this->time("$kind-1000", $case));
    }

    /** What 200 KB of text cost that are given as text, over what they cost in a file. */
    public function textToFile(): ?float
    {
        return self::quotient(
            $this->time('text-200k-string', 'zorvel-string'),
            $this->time('text-200k', 'zorvel'),
        );
    }

    private static function quotient(?float $time, ?float $base): ?float
    {
        return $time === null || $base === null ? null : $time / $base;
    }
}
