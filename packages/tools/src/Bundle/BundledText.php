<?php

declare(strict_types=1);

namespace Zorvel\Tools\Bundle;

use Zorvel\Syntax\Tag;

/** A template as a bundle holds it. */
final readonly class BundledText
{
    /** @param list<Piece> $pieces */
    public function __construct(public string $name, private array $pieces) {}

    /** @return list<string> the includes that have stayed, with their places */
    public function includes(): array
    {
        $ofPiece = static fn(Piece $piece): array => array_map(
            static fn(Tag $tag): string => "$piece->file:$tag->line: {{$tag->text}}",
            $piece->includes,
        );

        return array_merge(...array_map($ofPiece, $this->pieces));
    }

    /** What Zorvel\Bundle reads. */
    public function php(): string
    {
        $text = var_export(implode('', array_column($this->pieces, 'text')), true);
        $pieces = implode(', ', $this->places());
        $spliced = implode(', ', array_map(static fn(string $name): string => var_export($name, true) . ' => true', $this->spliced()));
        $includes = var_export($this->includes() !== [], true);

        $lines = ["'text' => $text", "'pieces' => [$pieces]", "'spliced' => [$spliced]", "'includes' => $includes"];

        return '    ' . var_export($this->name, true) . " => [\n        " . implode(",\n        ", $lines) . ",\n    ],\n";
    }

    /** @return list<string> where each piece begins: in the text, in which file, where in it, and on which line */
    private function places(): array
    {
        $places = [];
        $start = 0;
        foreach ($this->pieces as $piece) {
            $places[] = "[$start, " . var_export($piece->file, true) . ", $piece->offset, $piece->line]";
            $start += strlen($piece->text);
        }

        return $places;
    }

    /** @return list<string> the included files, but for those whose name no text in the data can be under */
    private function spliced(): array
    {
        $files = array_fill_keys(array_diff(array_column($this->pieces, 'file'), [$this->name]), true);

        return array_values(array_filter(array_keys($files), is_string(...)));
    }
}
