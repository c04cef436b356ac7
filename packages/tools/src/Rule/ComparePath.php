<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\Tag;
use Zorvel\Tools\Template\Template;

/** A text to compare with that looks like a path. */
final readonly class ComparePath extends TagRule
{
    protected function messageFor(Tag $tag, Template $template): ?string
    {
        $text = trim($tag->compareText() ?? '');

        return preg_match('/^[^\'\s]*::[^\'\s]*$|^\*$|^\[\*\]$|^\$[a-z_]\w*$/i', $text) === 1
            ? "Compares with the text \"$text\", not with a value: compare in PHP, or quote the text"
            : null;
    }
}
