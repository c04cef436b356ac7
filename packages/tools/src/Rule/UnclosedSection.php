<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Tools\Template\Probe;
use Zorvel\Tools\Template\Template;

/** A section that the template ends in. */
final readonly class UnclosedSection implements Rule
{
    public function check(Template $template): iterable
    {
        foreach ($template->nesting->unclosed as $section) {
            $fault = Probe::fault("{{$section->kind->value} -}");
            yield $section->offset => "$fault; {{$section->kind->closing()?->value}} has to follow, in the same file";
        }
    }
}
