<?php

declare(strict_types=1);

namespace Zorvel\Bench;

/** What runs in a child process: as PHP says there, not as it was asked for. */
final class Setting
{
    public static function ofThisProcess(): string
    {
        return implode(', ', [
            'zorvel ' . phpversion('zorvel'),
            'PHP ' . PHP_VERSION,
            ZEND_THREAD_SAFE ? 'thread-safe' : 'not thread-safe',
            self::opcache(),
            ...getenv('MALLOC_TRIM_THRESHOLD_') === false ? [] : ['heap trimmed'],
        ]);
    }

    private static function opcache(): string
    {
        $status = opcache_get_status(false);
        if ($status === false) {
            return 'no opcache';
        }

        return is_array($status['jit'] ?? null) && ($status['jit']['on'] ?? false) === true
            ? 'opcache with JIT'
            : 'opcache without JIT';
    }
}
