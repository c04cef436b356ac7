<?php

declare(strict_types=1);

namespace Zorvel\Tools\Template;

use Zorvel\Syntax\Tag;
use Zorvel\Syntax\TagKind;

/** How the sections of a template lie in each other. It goes on behind a fault, so that each fault is told once. */
final class Nesting
{
    /** @var list<Tag> the sections that the template ends in */
    public readonly array $unclosed;

    /** @var array<int, list<Tag>> the sections that are open where a tag stands, outermost first, by the tag's offset */
    private array $open = [];

    /** @var array<int, true> the offsets of closing tags out of place */
    private array $unexpected = [];

    /** @var array<int, Tag> sections left open by a closing tag out of place: theirs may still come */
    private array $passed = [];

    /** @param list<Tag> $tags */
    public function __construct(array $tags)
    {
        $open = [];
        foreach ($tags as $tag) {
            $this->open[$tag->offset] = $open;
            $open = $tag->kind->closes() ? $this->close($tag, $open) : $open;
            $open = $tag->kind->closing() === null ? $open : [...$open, $tag];
        }
        $this->unclosed = $open;
    }

    /** @return list<Tag> the tags of the loops round this tag, outermost first */
    public function loopsAround(Tag $tag): array
    {
        return array_values(array_filter($this->open[$tag->offset], fn(Tag $section): bool => $section->kind->isLoop()));
    }

    /** The section that was opened last where this tag stands. */
    public function innermost(Tag $tag): ?Tag
    {
        $open = $this->open[$tag->offset];

        return $open === [] ? null : $open[count($open) - 1];
    }

    /** Whether this is a closing tag that does not close the section opened last. */
    public function isUnexpected(Tag $tag): bool
    {
        return isset($this->unexpected[$tag->offset]);
    }

    /**
     * @param list<Tag> $open
     * @return list<Tag> what is open behind the closing tag
     */
    private function close(Tag $tag, array $open): array
    {
        $opener = $this->openerOf($tag, $open);
        if ($this->innermost($tag)?->kind->closing() !== $tag->kind && !$this->closesPassed($tag, $opener)) {
            $this->unexpected[$tag->offset] = true;
        }
        if ($opener === null) {
            return $open;
        }
        array_push($this->passed, ...array_slice($open, $opener + 1));

        return array_slice($open, 0, $opener);
    }

    /**
     * The section that the closing tag is meant for, also when it is a loop that runs the other way.
     *
     * @param list<Tag> $open
     */
    private function openerOf(Tag $tag, array $open): ?int
    {
        $innermost = array_key_last($open);
        if ($innermost !== null && $open[$innermost]->kind->isLoop() && $tag->kind !== TagKind::EndOptional) {
            return $innermost;
        }

        return array_find_key(array_reverse($open, true), fn(Tag $section): bool => $section->kind->closing() === $tag->kind);
    }

    private function closesPassed(Tag $tag, ?int $opener): bool
    {
        $passed = array_find_key($this->passed, fn(Tag $section): bool => $section->kind->closing() === $tag->kind);
        if ($opener !== null || $passed === null) {
            return false;
        }
        unset($this->passed[$passed]);

        return true;
    }
}
