<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\Tag;
use Zorvel\Tools\Template\Template;

/** A tag that the template ends in. */
final readonly class UnclosedTag extends TagRule
{
    protected function messageFor(Tag $tag, Template $template): ?string
    {
        return $tag->isClosed ? null : 'The template ends inside this tag: write }, or {{ for a brace that is text';
    }
}
