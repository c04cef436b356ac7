<?php

declare(strict_types=1);

namespace Zorvel\Playground;

use RuntimeException;

/** What was typed as data is none. */
final class InvalidData extends RuntimeException
{
    /** @param ?int $dataLine from 1; null when it cannot be told */
    public function __construct(string $message, public readonly ?int $dataLine = null)
    {
        parent::__construct($message);
    }
}
