<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\Tag;
use Zorvel\Tools\Template\Probe;
use Zorvel\Tools\Template\Template;

/** A closing tag that does not close the section that was opened last. */
final readonly class UnexpectedClosingTag extends TagRule
{
    protected function messageFor(Tag $tag, Template $template): ?string
    {
        if (!$template->nesting->isUnexpected($tag)) {
            return null;
        }
        $open = $template->nesting->sectionAround($tag);

        return Probe::fault("{{$tag->kind->value}}") . '; ' . ($open === null
            ? 'no section is open here'
            : "{{$open->text}} of line $open->line is open, close it with {{$open->kind->closing()?->value}} first");
    }
}
