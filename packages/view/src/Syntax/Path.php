<?php

declare(strict_types=1);

namespace Zorvel\Syntax;

/** A path as the language reads it; for one that the engine takes. */
final readonly class Path
{
    /** The loop whose element or key it begins at, empty for the innermost; null for a path from the top of the data. */
    public ?string $loop;

    /** Whether it is the loop's key that is meant. */
    public bool $isKey;

    /** @var list<string> the keys of a path from the top, or those behind the star */
    public array $keys;

    public function __construct(string $path)
    {
        $keys = explode('::', preg_replace('/^\.\*(?=::|$)/', '*', $path) ?? $path);
        $star = array_find_key($keys, static fn(string $key): bool => $key === '*' || $key === '[*]');
        $this->loop = $star === null ? null : $keys[$star - 1] ?? '';
        $this->isKey = $star !== null && $keys[$star] === '[*]';
        $this->keys = $star === null ? $keys : array_slice($keys, $star + 1);
    }
}
