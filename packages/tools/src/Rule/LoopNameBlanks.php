<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Tools\Template\Template;

/** Blanks round the comma behind a loop's name, which belong to the name and to the path. */
final readonly class LoopNameBlanks implements Rule
{
    public function check(Template $template): iterable
    {
        foreach ($template->tags as $tag) {
            if ($tag->kind->isLoop() && preg_match('/^[^,]*(\s,|,\s)/', $tag->parameter) === 1) {
                $written = preg_replace('/\s*,\s*/', ',', $tag->parameter, 1);
                yield $tag->offset => "Blanks round the comma belong to the names: write {{$tag->kind->value} $written}";
            }
        }
    }
}
