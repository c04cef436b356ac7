<?php

declare(strict_types=1);

namespace Zorvel\Bench;

/** The values of opcache.jit that are measured. */
enum Jit: string
{
    case Off = 'disable';
    case On = 'tracing';
}
