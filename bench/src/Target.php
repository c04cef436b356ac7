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
        public float $aim,
    ) {
    }

    public function verdict(): string
    {
        return match (true) {
            $this->ratio === null => 'not measured',
            $this->ratio <= $this->aim => 'aim reached',
            $this->ratio <= $this->atMost => 'reached',
            default => 'MISSED',
        };
    }
}
