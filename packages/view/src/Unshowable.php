<?php

declare(strict_types=1);

namespace Zorvel;

use RuntimeException;

/** A value that no template can show. On its way out it gathers the keys that lead to the value. */
final class Unshowable extends RuntimeException
{
    private const int KEYS_SHOWN = 8;

    /** @var list<array-key> */
    private array $keys = [];

    public function under(int|string $key): self
    {
        array_unshift($this->keys, $key);

        return $this;
    }

    /** As a template would write it: `order::items::3`. */
    public function path(): string
    {
        $rest = count($this->keys) > self::KEYS_SHOWN ? '::…' : '';

        return implode('::', array_slice($this->keys, 0, self::KEYS_SHOWN)) . $rest;
    }
}
