<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\TagKind;
use Zorvel\Tools\Template\Template;

/** A filter or an optional section that names nothing. */
final readonly class MissingPath implements Rule
{
    public function check(Template $template): iterable
    {
        foreach ($template->tags as $tag) {
            $needsPath = $tag->kind->isFilter() || $tag->kind->closing() === TagKind::EndOptional;
            if ($needsPath && trim($tag->parameter) === '') {
                yield $tag->offset => "The tag names nothing, so nothing is found: write {{$tag->kind->value} path}";
            }
        }
    }
}
