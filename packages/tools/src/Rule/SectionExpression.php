<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\Tag;
use Zorvel\Syntax\TagKind;
use Zorvel\Tools\Template\Template;

/** An expression as the condition of a section, which takes one path, and one text to compare with. */
final readonly class SectionExpression extends TagRule
{
    private const array REMEDIES = [
        '/^\s*$/' => 'This section never shows: name the path that decides',
        '/^!|^not\s/' => 'A condition has no "not": write {!optional path}',
        "/^[^']*(&&|\|\|)|^\S+\s+(and|or)\s/" => 'There is no "and" and no "or": write a section in the section, or two, or work the answer out in PHP',
        '/^[^\s\']*[=<>]|^\S+\s+(={1,3}|!==?|<>|[<>]=?)\s*[^\s=]/' => "There are no operators: write {optional path 'text'} or {!optional path 'text'}, or compare in PHP",
        '/^\S+\s+".*"$/s' => "Double quotes belong to the text: write {optional path 'text'}",
        '/^\S+\s+(true|false|null)$/i' => 'This is a text here, and any text but 0 asks for true: write {optional path} or {!optional path}, or quote the text',
        "/^\S+\s+[^\s'][^']*\s'/" => "What stands in front of the quote is ignored: write {optional path 'text'}",
    ];

    protected function messageFor(Tag $tag, Template $template): ?string
    {
        return $tag->kind->closing() === TagKind::EndOptional
            ? array_find(self::REMEDIES, fn(string $_, string $pattern): bool => preg_match($pattern, $tag->parameter) === 1)
            : null;
    }
}
