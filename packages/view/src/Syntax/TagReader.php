<?php

declare(strict_types=1);

namespace Zorvel\Syntax;

/**
 * Finds the tags of a template, exactly those that the extension finds:
 *
 *     a {{ b      no tag: one literal brace
 *     a { b       no tag: a blank follows the brace
 *     a {name}    a tag
 *     {a{b}c}     a tag "a{b": inside of it the byte behind a brace is taken as it is
 *     {name       a tag that the source ends in
 */
final class TagReader
{
    /** @return list<Tag> */
    public function read(string $source): array
    {
        $tags = [];
        $line = 1;
        $offset = 0;
        while (($start = $this->findTag($source, $offset)) !== null) {
            $line += substr_count($source, "\n", $offset, $start - $offset);
            $tags[] = $tag = $this->tagAt($source, $start, $line);
            $line += substr_count($source, "\n", $start, $tag->length);
            $offset = $start + $tag->length;
        }

        return $tags;
    }

    private function findTag(string $source, int $from): ?int
    {
        $last = strlen($source) - 1;
        while ($from < $last && ($brace = strpos($source, '{', $from)) !== false && $brace < $last) {
            if (!str_contains("{ \t\r\n", $source[$brace + 1])) {
                return $brace;
            }
            $from = $brace + 2;
        }

        return null;
    }

    private function tagAt(string $source, int $start, int $line): Tag
    {
        $end = $this->findEnd($source, $start + 1);
        $text = str_replace('{{', '{', substr($source, $start + 1, $end - $start - 1));
        $isClosed = $end < strlen($source);

        return new Tag($text, $start, $end + (int) $isClosed - $start, $line, $isClosed);
    }

    /** Where the tag's closing brace stands; the source's length when there is none. */
    private function findEnd(string $source, int $from): int
    {
        $length = strlen($source);
        $end = $from + strcspn($source, '{}', $from);
        while ($end < $length && $source[$end] === '{') {
            $from = min($end + 2, $length);
            $end = $from + strcspn($source, '{}', $from);
        }

        return $end;
    }
}
