<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\Tag;
use Zorvel\Tools\Template\Template;

/** A filter with alternatives, a default or parentheses: all its words are one path, which is never found. */
final readonly class FilterWords extends TagRule
{
    protected function messageFor(Tag $tag, Template $template): ?string
    {
        return match (true) {
            !$tag->kind->isFilter() => null,
            str_starts_with($tag->parameter, '(') => "A filter takes its path without parentheses: write {{$tag->kind->value} path}",
            preg_match('/\S\s/', $tag->parameter) === 1
                => "A filter takes one path, no alternatives and no default: write {optional a}{{$tag->kind->value} a}{/optional}{!optional a}…{/optional}",
            default => null,
        };
    }
}
