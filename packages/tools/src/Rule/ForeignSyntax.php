<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\Tag;
use Zorvel\Syntax\TagKind;
use Zorvel\Tools\Template\Template;

/** Comments and tags of other engines. Scripts and style sheets have much that is alike: the patterns keep clear of it. */
final readonly class ForeignSyntax implements Rule
{
    public const string COMMENT = 'There are no comments: leave it out, or write {optional -}{/optional with the comment here}';

    private const string DOLLAR = 'A path has no $ in front, and its keys are separated by "::": write {name} or {user::name}';

    private const array TAGS = [
        '/^\*[\s*].*(\*|\{.*)$/s' => self::COMMENT,
        '/^#\s|^#.*#$/s' => self::COMMENT,
        '/^%.*%$/s' => 'There is no {%: write {optional path}…{/optional} or {dynamic path}…{/dynamic}',
        '~^(els?e?if|if|unless)\s+[^\s(]|^/(if|unless)$~' => 'There is no {if: write {optional path}…{/optional}, or {!optional path}',
        '/^else$/' => 'There is no {else}: write {!optional path}…{/optional}',
        '~^(foreach|for|while)\s+[^\s(]|^/(foreach|for|while)$|^foreachelse$~' => 'There is no such tag: write {dynamic path}…{/dynamic}',
        '/^!!.*!!$/s' => 'There is no {!!: write {name}, which is not escaped',
        '~^[!/][a-z]\w*$~i' => 'There is no such tag: write {optional path}…{/optional}, {!optional path}…{/optional} or {dynamic path}…{/dynamic}',
        '~^/!optional~' => 'Both {optional} and {!optional} end with {/optional}',
        '/^[\w:*]+\s+"[^"]*"$/' => 'A default stands in single quotes: write {path \'default\'}',
        '/^\$[a-z_][^(;=]*$/i' => self::DOLLAR,
        '/^[\w.:*[\]-]+\s*\|\s*[a-z]\w*(:[^|]*)?$/i' => 'A filter comes first: write {htmlspecialchars path}, or work the value out in PHP',
    ];

    /** Keys that are separated in another way. */
    private const string KEYS = '/^[a-z_]\w*((\.|->)[a-z_]\w*)+$/i';

    /** @param array<array-key, mixed> $data sample data, or none */
    public function __construct(private array $data) {}

    public function check(Template $template): iterable
    {
        foreach ($template->tags as $tag) {
            $message = $this->messageFor($tag, $template);
            if ($message !== null) {
                yield $tag->offset => $message;
            }
        }
        yield from new ForeignText($this->data)->check($template);
    }

    private function messageFor(Tag $tag, Template $template): ?string
    {
        return match (true) {
            $tag->kind->isLoop() && preg_match('/\S\s+(in|as)\s+\S/', $tag->parameter) === 1 => 'A loop is named before a comma: write {dynamic row,rows}',
            $tag->kind !== TagKind::Include && !$template->isScripts($tag) && preg_match(self::KEYS, $tag->paths()[0] ?? '') === 1 => 'Keys are separated by "::": write {user::name}',
            $tag->kind !== TagKind::Variable => preg_match('/^\$[a-z_]/i', $tag->paths()[0] ?? '') === 1 ? self::DOLLAR : null,
            default => array_find(self::TAGS, fn(string $_, string $pattern): bool => preg_match($pattern, $tag->text) === 1),
        };
    }
}
