<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\Path;
use Zorvel\Syntax\Tag;
use Zorvel\Tools\Template\Template;

/** A loop's key compared with a text in quotes: to a key, the quotes belong to the text. */
final readonly class QuotedKey extends TagRule
{
    protected function messageFor(Tag $tag, Template $template): ?string
    {
        $text = trim($tag->compareText() ?? '');
        $isQuotedKey = preg_match('/^\'.*\'$/s', $text) === 1 && new Path($tag->paths()[0])->isKey;

        return $isQuotedKey
            ? "A key is compared as written: write {{$tag->kind->value} {$tag->paths()[0]} " . substr($text, 1, -1) . '}'
            : null;
    }
}
