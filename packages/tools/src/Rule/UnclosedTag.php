<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Tools\Template\Template;

/** A tag that the template ends in. */
final readonly class UnclosedTag implements Rule
{
    public function check(Template $template): iterable
    {
        foreach ($template->tags as $tag) {
            if (!$tag->isClosed) {
                yield $tag->offset => 'The template ends inside this tag: write }, or {{ for a brace that is text';
            }
        }
    }
}
