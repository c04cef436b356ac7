<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\TagKind;
use Zorvel\Tools\Template\Template;

/** Between the path of a section and the text to compare with stands one space, neither more nor another blank. */
final readonly class CompareBlanks implements Rule
{
    public function check(Template $template): iterable
    {
        foreach ($template->tags as $tag) {
            if ($tag->kind->closing() !== TagKind::EndOptional) {
                continue;
            }
            if (preg_match('/^[^ ]* (\s[^\']*)$/', $tag->parameter, $match) === 1) {
                yield $tag->offset => "Compares with \"$match[1]\", a blank in front: write one space before the text";
            } elseif (preg_match('/^\S+[\t\r\n\f\v]/', $tag->parameter) === 1) {
                yield $tag->offset => 'Only a space ends the path: write one before the text to compare with';
            }
        }
    }
}
