<?php

declare(strict_types=1);

namespace Zorvel\Syntax;

use Zorvel\Bundle;
use Zorvel\TemplateError;

/**
 * Which files the bytes of a bundle's text came from.
 *
 * @phpstan-import-type Piece from Bundle
 */
final readonly class Pieces
{
    /** @param list<Piece> $pieces */
    public function __construct(private string $text, private array $pieces) {}

    /** The error about a tag of the text, with the file and the line that the tag came from. */
    public function error(Tag $tag, string $what): TemplateError
    {
        $before = array_filter($this->pieces, static fn(array $piece): bool => $piece[0] <= $tag->offset);
        [$start, $file, $offset, $line] = $before[array_key_last($before) ?? 0];
        $line += substr_count($this->text, "\n", $start, $tag->offset - $start);

        return new TemplateError($file, $what, new Tag($tag->text, $tag->offset - $start + $offset, $tag->length, $line, $tag->isClosed));
    }
}
