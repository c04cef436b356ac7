<?php

declare(strict_types=1);

namespace Zorvel\Tools\Bundle;

use Zorvel\Syntax\Tag;
use Zorvel\Syntax\TagKind;
use Zorvel\Tools\Template\Template;

/** A run of bytes of one file, which ends between two tags. */
final readonly class Piece
{
    public string $text;

    /** From 1. */
    public int $line;

    /** The brace at the end that the byte behind it may pair with; empty when there is none. */
    public string $openBrace;

    /** @var list<Tag> the includes that have stayed in it */
    public array $includes;

    /** @param string $file its name inside the folders */
    public function __construct(public string $file, Template $template, public int $offset, int $end)
    {
        $this->text = substr($template->text, $offset, $end - $offset);
        $this->line = 1 + substr_count($template->text, "\n", 0, $offset);
        $tags = array_filter($template->tags, static fn(Tag $tag): bool => $tag->offset >= $offset && $tag->offset < $end);
        $this->includes = array_values(array_filter($tags, static fn(Tag $tag): bool => $tag->kind === TagKind::Include));
        $last = end($tags);
        $this->openBrace = self::openBrace($last === false ? $this->text : substr($this->text, $last->offset + $last->length - $offset));
    }

    /** @param string $text without tags: its braces have come in pairs from the start */
    private static function openBrace(string $text): string
    {
        $last = substr($text, -1);
        $run = strlen($text) - strlen(rtrim($text, $last));

        return ($last === '{' || $last === '}') && $run % 2 === 1 ? $last : '';
    }
}
