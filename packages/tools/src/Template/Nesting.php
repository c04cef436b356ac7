<?php

declare(strict_types=1);

namespace Zorvel\Tools\Template;

use Zorvel\Syntax\Tag;
use Zorvel\Syntax\TagKind;

/** How the sections of a template lie in each other. It goes on behind a fault, so that each fault is told once. */
final class Nesting
{
    /** @var list<Tag> the sections that are open, in the end those that the template ends in */
    public private(set) array $open = [];

    /** @var array<int, ?Tag> the section opened last where a tag stands, by the tag's offset */
    private array $sections = [];

    /** @var array<int, true> the offsets of closing tags out of place */
    private array $unexpected = [];

    /** @var array<int, Tag> sections left open by a closing tag out of place: theirs may still come */
    private array $passed = [];

    /** @param list<Tag> $tags */
    public function __construct(array $tags)
    {
        foreach ($tags as $tag) {
            $this->sections[$tag->offset] = $this->open === [] ? null : $this->open[count($this->open) - 1];
            if ($tag->kind->closes()) {
                $this->close($tag);
            } elseif ($tag->kind->closing() !== null) {
                $this->open[] = $tag;
            }
        }
    }

    /** The section that was opened last where this tag stands. */
    public function sectionAround(Tag $tag): ?Tag
    {
        return $this->sections[$tag->offset];
    }

    /** @return list<Tag> the tags of the loops round this tag, outermost first */
    public function loopsAround(Tag $tag): array
    {
        $loops = [];
        while (($tag = $this->sectionAround($tag)) !== null) {
            if ($tag->kind->isLoop()) {
                $loops[] = $tag;
            }
        }

        return array_reverse($loops);
    }

    /** Whether this is a closing tag that does not close the section opened last. */
    public function isUnexpected(Tag $tag): bool
    {
        return isset($this->unexpected[$tag->offset]);
    }

    private function close(Tag $tag): void
    {
        $opener = $this->openerOf($tag);
        if ($this->sectionAround($tag)?->kind->closing() !== $tag->kind && !$this->closesPassed($tag, $opener)) {
            $this->unexpected[$tag->offset] = true;
        }
        if ($opener !== null) {
            array_push($this->passed, ...array_slice(array_splice($this->open, $opener), 1));
        }
    }

    /** The section that the closing tag is meant for, also when it is a loop that runs the other way. */
    private function openerOf(Tag $tag): ?int
    {
        $isMeant = fn(Tag $section): bool => $section->kind->closing() === $tag->kind;
        $last = array_key_last($this->open);
        $isOtherWay = $last !== null && $this->open[$last]->kind->isLoop() && $tag->kind !== TagKind::EndOptional;

        return $last === null || $isOtherWay || $isMeant($this->open[$last])
            ? $last
            : array_find_key(array_reverse($this->open, true), $isMeant);
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
