<?php

declare(strict_types=1);

namespace Zorvel\Bench;

/** What the sampler saw: seconds for one call, by case and round. */
final readonly class Samples
{
    /** @param array<string, list<float>> $seconds */
    public function __construct(public array $seconds) {}

    public static function ofJson(string $json): self
    {
        /** @var array{seconds: array<string, list<float>>} $samples */
        $samples = json_decode($json, true, flags: JSON_THROW_ON_ERROR);

        return new self($samples['seconds']);
    }

    /** The rounds of both, one after the other. */
    public function with(self $more): self
    {
        $seconds = $this->seconds;
        foreach ($more->seconds as $case => $rounds) {
            $seconds[$case] = [...$seconds[$case] ?? [], ...$rounds];
        }

        return new self($seconds);
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

    /** The median of the ratios within each round, to the sum of the bases; null when one of them was not measured. */
    public function ratio(string $case, string ...$bases): ?float
    {
        if (array_diff([$case, ...$bases], $this->cases()) !== []) {
            return null;
        }
        $ratio = static fn(float $time, float ...$bases): float => $time / array_sum($bases);
        $seconds = array_map(fn(string $base): array => $this->seconds[$base], array_values($bases));

        return self::median(array_map($ratio, $this->seconds[$case], ...$seconds));
    }

    /** @param list<string> $cases */
    public function fastest(array $cases): ?string
    {
        $times = array_filter(array_combine($cases, array_map($this->time(...), $cases)));
        asort($times);

        return array_key_first($times);
    }

    /** @param list<float> $values */
    private static function median(array $values): float
    {
        sort($values);
        $middle = intdiv(count($values), 2);

        return count($values) % 2 === 1 ? $values[$middle] : ($values[$middle - 1] + $values[$middle]) / 2;
    }
}
