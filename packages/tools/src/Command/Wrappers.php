<?php

declare(strict_types=1);

namespace Zorvel\Tools\Command;

/** What an include may read while a program serves pages, but not while its templates are checked. */
final readonly class Wrappers
{
    private const array READING = ['data', 'ftp', 'ftps', 'http', 'https', 'php'];

    /** For the rest of the process. */
    public static function close(): void
    {
        array_map(stream_wrapper_unregister(...), array_intersect(self::READING, stream_get_wrappers()));
    }
}
