<?php

declare(strict_types=1);

namespace Zorvel\Syntax;

/** A path as a tag has it: "a::b", "*::b", "[*]", "row::*::b". Of one that is at fault it tells nothing useful. */
final readonly class Path
{
    /** The loop that the path starts from, '' being the innermost; null for a path from the top of the data. */
    public ?string $loop;

    /** Whether the path is the key of that loop. */
    public bool $isKey;

    /** @var list<string> the keys to follow, from the loop's element or from the top */
    public array $keys;

    public function __construct(public string $text)
    {
        $segments = explode('::', $text);
        $wildcards = array_keys(array_map(self::isWildcard(...), $segments, array_keys($segments)), true, true);
        $at = $wildcards[0] ?? null;
        $this->loop = $at === null ? null : implode('::', array_slice($segments, 0, $at));
        $this->isKey = $at !== null && $segments[$at] === '[*]';
        $this->keys = $at === null ? $segments : array_slice($segments, $at + 1);
    }

    private static function isWildcard(string $segment, int $index): bool
    {
        return in_array($segment, ['*', '[*]'], true) || ($index === 0 && $segment === '.*');
    }
}
