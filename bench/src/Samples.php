<?php

declare(strict_types=1);

namespace Zorvel\Bench;

/** What the sampler saw: seconds for one call, by case and round. */
final readonly class Samples
{
    /** @param array<string, array<int, float>> $seconds */
    public function __construct(private array $seconds)
    {
    }

    /** @return list<string> */
    public function cases(): array
    {
        return array_keys($this->seconds);
    }

    public function time(string $case): ?float
    {
        return isset($this->seconds[$case]) ? self::median($this->seconds[$case]) : null;
    }

    /** The median of the ratios within each round, null when one of the two was not measured. */
    public function ratio(string $case, string $base): ?float
    {
        if (!isset($this->seconds[$case], $this->seconds[$base])) {
            return null;
        }

        return self::median(array_map(
            static fn (float $time, float $baseTime): float => $time / $baseTime,
            $this->seconds[$case],
            $this->seconds[$base],
        ));
    }

    /** @param list<string> $cases */
    public function fastest(array $cases): ?string
    {
        $times = array_filter(array_combine($cases, array_map($this->time(...), $cases)));

        return $times === [] ? null : array_search(min($times), $times, true);
    }

    /** @param array<int, float> $values */
    private static function median(array $values): float
    {
        sort($values);
        $middle = intdiv(count($values), 2);

        return count($values) % 2 === 1 ? $values[$middle] : ($values[$middle - 1] + $values[$middle]) / 2;
    }
}
