<?php

declare(strict_types=1);

namespace Zorvel\Syntax;

use ArrayIterator;
use Iterator;

/** A tag and, when it opens a section, what stands in the section. */
final readonly class Node
{
    /** @param list<self> $children */
    private function __construct(public Tag $tag, public array $children) {}

    /**
     * The tags of a template that the engine takes, as a tree without the closing ones.
     *
     * @return list<self>
     */
    public static function tree(string $text): array
    {
        return self::untilClosed(new ArrayIterator(new TagReader()->read($text)));
    }

    /**
     * @param Iterator<Tag> $tags
     * @return list<self>
     */
    private static function untilClosed(Iterator $tags): array
    {
        $nodes = [];
        for (; $tags->valid() && !$tags->current()->kind->closes(); $tags->next()) {
            $tag = $tags->current();
            $nodes[] = new self($tag, $tag->kind->closing() === null ? [] : self::section($tags));
        }

        return $nodes;
    }

    /**
     * @param Iterator<Tag> $tags at the tag that opens the section, in the end at the one that closes it
     * @return list<self>
     */
    private static function section(Iterator $tags): array
    {
        $tags->next();

        return self::untilClosed($tags);
    }
}
