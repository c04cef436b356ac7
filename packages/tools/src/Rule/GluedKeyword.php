<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\TagKind;
use Zorvel\Tools\Template\Template;

/** A tag that begins with a keyword and goes on. */
final readonly class GluedKeyword implements Rule
{
    public function check(Template $template): iterable
    {
        foreach ($template->tags as $tag) {
            $rest = substr($tag->text, strlen($tag->kind->value));
            if ($tag->kind !== TagKind::Variable && preg_match('/^[\w\x80-\xFF-]/', $rest) === 1) {
                yield $tag->offset => "This is {{$tag->kind->value} $tag->parameter}: put a blank behind the keyword, or rename the key";
            }
        }
    }
}
