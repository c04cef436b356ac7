<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Tools\Template\Template;

/** Two closing braces that come out as one, with no doubled brace before them that they close. */
final readonly class LostBrace implements Rule
{
    public function check(Template $template): iterable
    {
        $opened = 0;
        foreach ($this->doubledBraces($template) as $offset => $brace) {
            $opened += $brace === '{{' ? 1 : -1;
            if ($opened < 0) {
                yield $offset => 'These come out as one brace: put a blank between them, or double each';
                $opened = 0;
            }
        }
    }

    /** @return iterable<int, string> by their offsets */
    private function doubledBraces(Template $template): iterable
    {
        $from = 0;
        foreach ($template->tags as $tag) {
            yield from $this->doubledBracesIn($template->text, $from, $tag->offset);
            $from = $tag->offset + $tag->length;
            yield from array_fill($tag->offset, substr_count($template->text, '{{', $tag->offset, $tag->length), '{{');
        }
        yield from $this->doubledBracesIn($template->text, $from, strlen($template->text));
    }

    /** @return iterable<int, string> by their offsets */
    private function doubledBracesIn(string $text, int $from, int $to): iterable
    {
        preg_match_all('/\{\{|}}/', substr($text, $from, $to - $from), $matches, PREG_OFFSET_CAPTURE);
        foreach ($matches[0] as [$braces, $offset]) {
            yield $from + $offset => $braces;
        }
    }
}
