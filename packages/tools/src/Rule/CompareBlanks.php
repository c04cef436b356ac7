<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\Tag;
use Zorvel\Syntax\TagKind;
use Zorvel\Tools\Template\Template;

/** Between the path of a section and the text to compare with stands one space, neither more nor another blank. */
final readonly class CompareBlanks extends TagRule
{
    protected function messageFor(Tag $tag, Template $template): ?string
    {
        return match (true) {
            $tag->kind->closing() !== TagKind::EndOptional => null,
            preg_match('/^\s[^\']*$/', $tag->compareText() ?? '') === 1 => "Compares with \"{$tag->compareText()}\", a blank in front: write one space before the text",
            preg_match('/[\t\r\n\f\v]/', trim($tag->paths()[0])) === 1 => 'Only a space ends the path: write one before the text to compare with',
            default => null,
        };
    }
}
