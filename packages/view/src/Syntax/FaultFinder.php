<?php

declare(strict_types=1);

namespace Zorvel\Syntax;

use Zorvel\Engine;
use Zorvel\EngineFailure;

/**
 * Finds the tag that a fault is about. How sections are nested the tags tell by themselves; whether a path is at
 * fault the engine is asked, with this path alone; every other fault quotes the tag's parameter.
 */
final readonly class FaultFinder
{
    /** @param string $what the engine's message without the name of the template */
    public function __construct(private string $what) {}

    /** The first tag that has this fault; of the sections that are left open the outermost. */
    public function find(string $text): ?Tag
    {
        $open = [];
        foreach (new TagReader()->read($text) as $tag) {
            if ($this->isIn($tag, $open)) {
                return $tag;
            }
            if ($tag->kind->closes()) {
                array_pop($open);
            } elseif ($tag->kind->closing() !== null) {
                $open[] = $tag;
            }
        }

        return $this->begins('Missing closing tag') ? $open[0] ?? null : null;
    }

    /** @param list<Tag> $open the sections around the tag, the innermost last */
    private function isIn(Tag $tag, array $open): bool
    {
        return match (true) {
            $this->begins('Bad formated parameter') => array_any($tag->paths(), $this->isInPath(...)),
            $tag->kind->closes() => $this->begins('Unexpected closing') && !$this->isClosing($tag, $open),
            $tag->kind->isLoop() => $this->isInLoop($tag, $open),
            $tag->kind === TagKind::Include => $this->isInInclude($tag),
            $tag->kind === TagKind::Variable => $this->begins("Variable block bad parameter '$tag->parameter'"),
            default => false,
        };
    }

    private function begins(string $text): bool
    {
        return str_starts_with($this->what, $text);
    }

    /** The comma lets the path keep the blanks in front of it. */
    private function isInPath(string $path): bool
    {
        $text = '{dynamic ,' . strtr($path, ['{}' => '{}', '{' => '{{']) . '}{/dynamic}';
        try {
            Engine::page($text, [], true);
        } catch (EngineFailure $failure) {
            return $failure->getMessage() === "$this->what in $text";
        }

        return false;
    }

    /** @param list<Tag> $open */
    private function isClosing(Tag $tag, array $open): bool
    {
        $innermost = end($open);

        return $innermost !== false && $innermost->kind->closing() === $tag->kind;
    }

    /** @param list<Tag> $open */
    private function isInLoop(Tag $tag, array $open): bool
    {
        $taken = array_diff(array_map(fn(Tag $outer): string => $outer->loopName(), $open), ['']);
        $isAboutName = str_ends_with($this->what, 'namespace is used already');

        return $this->begins("Dynamic block bad parameter '{$tag->paths()[0]}'")
            && (!$isAboutName || in_array($tag->loopName(), $taken, true));
    }

    private function isInInclude(Tag $tag): bool
    {
        return $this->begins("Include block bad parameter '$tag->parameter'")
            || ($tag->parameter === '' && $this->begins('Include block bad parameter:'));
    }
}
