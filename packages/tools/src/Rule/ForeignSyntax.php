<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\TagKind;
use Zorvel\Tools\Template\Template;

/** Comments and tags of other engines. Scripts and style sheets have much that is alike: the patterns keep clear of it. */
final readonly class ForeignSyntax implements Rule
{
    private const string COMMENT = 'There are no comments: leave it out, or write {optional -}{/optional with the comment here}';

    private const array TAGS = [
        '/^\*[\s*].*(\*|\{.*)$/s' => self::COMMENT,
        '/^#.*#$/s' => self::COMMENT,
        '/^%.*%$/s' => 'There is no {%: write {optional path}…{/optional} or {dynamic path}…{/dynamic}',
        '~^(els?e?if|if|unless)\s+[^\s(]|^/(if|unless)$~' => 'There is no {if: write {optional path}…{/optional}, or {!optional path}',
        '/^else$/' => 'There is no {else}: write {!optional path}…{/optional}',
        '~^(foreach|for|while)\s+[^\s(]|^/(foreach|for|while)$|^foreachelse$~' => 'There is no such tag: write {dynamic path}…{/dynamic}',
        '/^\$[a-z_][^(;=]*$/i' => 'A path has no $ in front, and its keys are separated by "::": write {name} or {user::name}',
        '/^[\w.:*[\]-]+\s*\|\s*[a-z]\w*(:[^|]*)?$/i' => 'A filter comes first: write {htmlspecialchars path}, or work the value out in PHP',
    ];

    /** Braces doubled round a name in blanks, or round the sign of a section: nobody's script has them. */
    private const string MUSTACHES = '~(?<!\{)\{\{(?:\s+[\w.]+\s*(?:\|[^{}]*)?|[#/^>]\s*[\w./]+[^{}]*)\}\}(?!\})~';

    public function check(Template $template): iterable
    {
        foreach ($template->tags as $tag) {
            $message = array_find(self::TAGS, fn(string $message, string $pattern): bool => preg_match($pattern, $tag->text) === 1);
            if ($message !== null && $tag->kind === TagKind::Variable) {
                yield $tag->offset => $message;
            }
        }
        preg_match_all(self::MUSTACHES, $template->text, $matches, PREG_OFFSET_CAPTURE);
        foreach ($matches[0] as [, $offset]) {
            yield $offset => 'A doubled brace is text: a tag has one brace and no blank behind it';
        }
    }
}
