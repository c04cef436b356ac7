<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\Tag;
use Zorvel\Tools\Template\Probe;
use Zorvel\Tools\Template\Template;

/** A section that the template ends in. */
final readonly class UnclosedSection extends TagRule
{
    protected function messageFor(Tag $tag, Template $template): ?string
    {
        return in_array($tag, $template->nesting->open, true)
            ? Probe::fault("{{$tag->kind->value} -}") . "; {{$tag->kind->closing()?->value}} has to follow, in the same file"
            : null;
    }
}
