<?php

declare(strict_types=1);

namespace Zorvel\Bench;

use Closure;

/** Times several cases in turns, so that whatever else the machine does meets all of them alike. */
final readonly class Sampler
{
    private const int WARM = 50_000_000; // nanoseconds

    /** @param float $batch the least number of seconds that one sample takes */
    public function __construct(private int $rounds, private float $batch) {}

    /** @param array<string, Closure(): mixed> $cases */
    public function run(array $cases): Samples
    {
        $repeats = array_map($this->repeats(...), $cases);
        $seconds = [];
        for ($round = 0; $round < $this->rounds; $round++) {
            foreach (self::rotate(array_keys($cases), $round) as $id) {
                $seconds[$id][] = self::time($cases[$id], $repeats[$id]) / $repeats[$id];
            }
        }

        return new Samples($seconds);
    }

    private function repeats(Closure $case): int
    {
        self::warm($case);
        $repeats = 1;
        while (($seconds = self::time($case, $repeats)) < $this->batch / 4) {
            $repeats *= 2;
        }

        return max(1, (int) ceil($repeats * $this->batch / $seconds));
    }

    /** With the JIT a case settles only when the side exits of what it runs are compiled as well, bit by bit. */
    private static function warm(Closure $case): void
    {
        $end = hrtime(true) + self::WARM;
        do {
            $case();
        } while (hrtime(true) < $end);
    }

    private static function time(Closure $case, int $repeats): float
    {
        $start = hrtime(true);
        for ($i = 0; $i < $repeats; $i++) {
            $case();
        }

        return (hrtime(true) - $start) / 1e9;
    }

    /**
     * @param list<string> $ids
     * @return list<string>
     */
    private static function rotate(array $ids, int $by): array
    {
        $by %= count($ids);

        return [...array_slice($ids, $by), ...array_slice($ids, 0, $by)];
    }
}
