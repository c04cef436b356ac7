<?php

declare(strict_types=1);

namespace Zorvel\Tools\Report;

use Symfony\Component\Console\Helper\Helper;
use Zorvel\Syntax\Tag;

/** The line that a tag is in, and a mark under the tag. */
final readonly class Excerpt
{
    /** As much of a line is shown, in front of the tag and from there on. */
    private const int WIDTH = 60;

    public static function of(string $text, Tag $tag): string
    {
        $lines = explode("\n", substr($text, 0, $tag->offset));
        $before = "$tag->line | " . mb_substr(self::shown(end($lines)), -self::WIDTH, null, 'UTF-8');
        $marked = self::firstLine(substr($text, $tag->offset, $tag->length));

        return $before . self::firstLine(substr($text, $tag->offset)) . "\n"
            . str_repeat(' ', Helper::width($before)) . str_repeat('^', Helper::width($marked));
    }

    private static function firstLine(string $text): string
    {
        return mb_substr(self::shown(rtrim(explode("\n", $text, 2)[0], "\r")), 0, self::WIDTH, 'UTF-8');
    }

    /** What a terminal would obey is left out, and a tab is one column wide. */
    private static function shown(string $line): string
    {
        return mb_scrub((string) preg_replace('/[\x00-\x1F\x7F]/', ' ', $line), 'UTF-8');
    }
}
