<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\Tag;
use Zorvel\Tools\Template\Template;

/** A filter with alternatives or a default: all its words are one path, which is never found. */
final readonly class FilterWords extends TagRule
{
    protected function messageFor(Tag $tag, Template $template): ?string
    {
        return $tag->kind->isFilter() && preg_match('/\S\s/', $tag->parameter) === 1
            ? "A filter takes one path, no alternatives and no default: write {optional a}{{$tag->kind->value} a}{/optional}{!optional a}…{/optional}"
            : null;
    }
}
