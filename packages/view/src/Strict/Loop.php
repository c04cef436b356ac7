<?php

declare(strict_types=1);

namespace Zorvel\Strict;

/** What a loop has reached. */
final readonly class Loop
{
    public function __construct(public string $name, public string $key, public Found $element) {}
}
