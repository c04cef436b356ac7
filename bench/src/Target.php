<?php

declare(strict_types=1);

namespace Zorvel\Bench;

/** A ratio that zorvel is to reach. */
final readonly class Target
{
    /** @param ?float $ratio what it does reach, null when that was not measured */
    public function __construct(
        public string $work,
        public string $against,
        public ?float $ratio,
        public float $atMost,
        public ?float $aim = null,
    ) {}

    public function verdict(): string
    {
        return match (true) {
            $this->ratio === null => 'not measured',
            $this->ratio > $this->atMost => 'MISSED',
            $this->aim !== null && $this->ratio <= $this->aim => 'hit, the aim too',
            default => 'hit',
        };
    }
}
