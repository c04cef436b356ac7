<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\Tag;
use Zorvel\Syntax\TagKind;
use Zorvel\Tools\Template\Template;

/** An expression as the condition of a section, which takes one path, and one text to compare with; or as a value. */
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

    /** A star is a path, too, and an assignment a script's. */
    private const array VALUE_REMEDIES = [
        '~^[\w:*[\]]+\s+([-+/%.\~<>]|[=!]==?|[<>]=|<>|&&|\|\||\?|\?\?|\?:|\*(?=\s+\d))\s~'
            => "There are no operators, each word is a path: work the value out in PHP, or write {path 'default'}",
    ];

    protected function messageFor(Tag $tag, Template $template): ?string
    {
        $remedies = match (true) {
            $tag->kind->closing() === TagKind::EndOptional => self::REMEDIES,
            $tag->kind === TagKind::Variable && $template->isMarkup($tag->offset) && !$template->isScripts($tag) => self::VALUE_REMEDIES,
            default => [],
        };

        return array_find($remedies, fn(string $_, string $pattern): bool => preg_match($pattern, $tag->parameter) === 1);
    }
}
