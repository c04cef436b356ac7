<?php

declare(strict_types=1);

namespace Zorvel\Bench;

/** How PHP runs. */
enum Variant
{
    case Plain;
    case Jit;

    /** With glibc's thresholds as they are before a process has freed a large block, which PHP's own start may do. */
    case Trimmed;

    /** @return array<string, string> */
    public function settings(): array
    {
        return ['opcache.jit' => $this === self::Jit ? 'tracing' : 'disable'];
    }

    /** @return array<string, string> */
    public function environment(): array
    {
        return $this === self::Trimmed ? ['MALLOC_TRIM_THRESHOLD_' => '131072'] : [];
    }

    /**
     * @param list<string> $chosen
     * @return list<string> the pages that are measured so
     */
    public function pages(array $chosen): array
    {
        return $this === self::Trimmed
            ? array_values(array_intersect($chosen, ['catalogue-500', 'catalogue-500-escaped']))
            : $chosen;
    }
}
