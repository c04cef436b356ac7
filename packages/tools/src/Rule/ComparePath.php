<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Tools\Template\Template;

/** A text to compare with that looks like a path. */
final readonly class ComparePath implements Rule
{
    public function check(Template $template): iterable
    {
        foreach ($template->tags as $tag) {
            $text = trim($tag->compareText() ?? '');
            if (preg_match('/^[^\'\s]*::[^\'\s]*$|^\*$|^\[\*\]$/', $text) === 1) {
                yield $tag->offset => "Compares with the text \"$text\", not with a value: compare in PHP, or quote the text";
            }
        }
    }
}
