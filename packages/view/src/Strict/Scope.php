<?php

declare(strict_types=1);

namespace Zorvel\Strict;

use Zorvel\Syntax\Path;

/** What a tag can name: the data, and what the loops around it have reached. */
final readonly class Scope
{
    /** @param list<Loop> $loops the innermost last */
    public function __construct(private Found $data, private array $loops = []) {}

    public function inside(Loop $loop): self
    {
        return new self($this->data, [...$this->loops, $loop]);
    }

    public function find(Path $path): ?Found
    {
        if ($path->loop === null) {
            return Found::isNumber($path->keys[0]) ? null : $this->data->follow($path->keys);
        }
        $loop = $this->loopOf($path);

        return $loop !== null && $path->isKey ? new Found($loop->key) : $loop?->element->follow($path->keys);
    }

    /** The loop that a path begins at; of several of one name the outermost. */
    public function loopOf(Path $path): ?Loop
    {
        if ($path->loop === '') {
            return array_slice($this->loops, -1)[0] ?? null;
        }

        return array_find($this->loops, static fn(Loop $loop): bool => $loop->name === $path->loop);
    }
}
