<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Tools\Template\Probe;
use Zorvel\Tools\Template\Template;

/** A closing tag that does not close the section that was opened last. */
final readonly class UnexpectedClosingTag implements Rule
{
    public function check(Template $template): iterable
    {
        foreach ($template->tags as $tag) {
            if (!$template->nesting->isUnexpected($tag)) {
                continue;
            }
            $open = $template->nesting->innermost($tag);
            yield $tag->offset => Probe::fault("{{$tag->kind->value}}") . '; ' . ($open === null
                ? 'no section is open here'
                : "{{$open->text}} of line $open->line is open, close it with {{$open->kind->closing()?->value}} first");
        }
    }
}
