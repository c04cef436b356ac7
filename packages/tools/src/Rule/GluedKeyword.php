<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\Tag;
use Zorvel\Syntax\TagKind;
use Zorvel\Tools\Template\Template;

/** A tag that begins with a keyword and goes on. */
final readonly class GluedKeyword extends TagRule
{
    protected function messageFor(Tag $tag, Template $template): ?string
    {
        $rest = substr($tag->text, strlen($tag->kind->value));

        return $tag->kind !== TagKind::Variable && preg_match('/^[\w\x80-\xFF-]/', $rest) === 1
            ? "This is {{$tag->kind->value} $tag->parameter}: put a blank behind the keyword, or rename the key"
            : null;
    }
}
