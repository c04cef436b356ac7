<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\Tag;
use Zorvel\Tools\Template\Template;

/** Blanks round the comma behind a loop's name, which belong to the name and to the path. */
final readonly class LoopNameBlanks extends TagRule
{
    protected function messageFor(Tag $tag, Template $template): ?string
    {
        if (!$tag->kind->isLoop() || preg_match('/^[^,]*(\s,|,\s)/', $tag->parameter) !== 1) {
            return null;
        }
        $written = preg_replace('/\s*,\s*/', ',', $tag->parameter, 1);

        return "Blanks round the comma belong to the names: write {{$tag->kind->value} $written}";
    }
}
