<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\Path;
use Zorvel\Syntax\Tag;
use Zorvel\Syntax\TagKind;
use Zorvel\Syntax\TagReader;
use Zorvel\Tools\Template\Template;

/**
 * A brace of a script, a style sheet or JSON that begins a tag, when the page would not have the braces as they are:
 *
 *     {"title": "{title}"}         swallows the tag within
 *     {font-family: x, 'Arial'}    gives its "default"
 *     `${title}`                   gives a value of the data, in a script
 *     {/optional see {title} on}   a comment, which ends at the first closing brace
 *     a{margin:0}                  comes out as it is: no finding
 */
final readonly class SwallowedTag extends TagRule
{
    private const string PATH = '/^[\w.*[\]-]+(::[\w.*[\]-]+)*$/';

    /** @param ?array<array-key, mixed> $data sample data, when there is some */
    public function __construct(private ?array $data) {}

    protected function messageFor(Tag $tag, Template $template): ?string
    {
        $isSwallowing = $tag->kind === TagKind::Variable
            && ($this->hasTagWithin($tag) || $this->isDeclaration($tag) || $this->isTemplateLiteral($tag, $template));

        return match (true) {
            $isSwallowing => 'This brace begins a tag, up to the next }: write {{ for a brace that is text, or put a blank behind it',
            $tag->kind->closes() && preg_match('/\{(?!})/', $tag->text) === 1 => 'This tag ends at the first }: leave out the braces in it',
            default => null,
        };
    }

    private function hasTagWithin(Tag $tag): bool
    {
        $brace = strrpos($tag->text, '{');
        $within = $brace === false ? null : new TagReader()->read(substr($tag->text, $brace) . '}')[0] ?? null;
        if ($within === null) {
            return false;
        }
        $isValue = $tag->text[0] === '"' || preg_match('/["\']$|[\w-]:\s*$/', substr($tag->text, 0, $brace)) === 1;

        return match (true) {
            $within->kind !== TagKind::Variable => preg_match('/^\s/', substr($within->text, strlen($within->kind->value))) === 1,
            preg_match(self::PATH, $within->text) !== 1 => false,
            default => $isValue || new Path($within->text)->loop !== null || str_contains($within->text, '::'),
        };
    }

    /** Whether a default stands behind a word that nobody would give to a key. */
    private function isDeclaration(Tag $tag): bool
    {
        return preg_match("/^[^']*\s'/", $tag->parameter) === 1 && preg_grep('/[:;,]$|["()=<>{]/', $tag->paths()) !== [];
    }

    /** Whether a dollar sign of a script stands in front of what shows a default, or may show a value. */
    private function isTemplateLiteral(Tag $tag, Template $template): bool
    {
        $isDollar = $tag->offset > 0 && $template->text[$tag->offset - 1] === '$' && !$template->isMarkup($tag->offset);
        $isPath = preg_match('/^(\w+)(::[\w*[\]]+)*$/', $tag->text, $match) === 1;
        $isKnown = $isPath && ($this->data === null || array_key_exists($match[1], $this->data) || new Path($tag->text)->loop !== null);

        return $isDollar && ($tag->hasDefault() || $isKnown);
    }
}
