<?php

declare(strict_types=1);

namespace Zorvel\Tools;

enum Level: string
{
    /** The page is null. */
    case Error = 'error';

    /** There is a page, and very likely not the one that was meant. */
    case Warning = 'warning';
}
