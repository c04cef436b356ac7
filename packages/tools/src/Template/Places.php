<?php

declare(strict_types=1);

namespace Zorvel\Tools\Template;

/** Lines and columns of a text. What is asked for in ascending order is counted once. */
final class Places
{
    private int $offset = 0;

    private int $line = 1;

    private int $column = 1;

    public function __construct(private readonly string $text) {}

    /** @return array{int, int} line and column, in characters, of a byte */
    public function at(int $offset): array
    {
        if ($offset < $this->offset) {
            [$this->offset, $this->line, $this->column] = [0, 1, 1];
        }
        $this->pass(substr($this->text, $this->offset, $offset - $this->offset));
        $this->offset = $offset;

        return [$this->line, $this->column];
    }

    private function pass(string $text): void
    {
        $lineEnd = strrpos($text, "\n");
        $this->line += substr_count($text, "\n");
        $this->column = $lineEnd === false ? $this->column + self::characters($text) : 1 + self::characters(substr($text, $lineEnd + 1));
    }

    /** Of a text that is not UTF-8, about its bytes. */
    private static function characters(string $text): int
    {
        return (int) preg_match_all('/[^\x80-\xBF]/', $text);
    }
}
