<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Tools\Template\Template;

/** Doubled braces and directives of other engines, which come out as text; told once a line. */
final readonly class ForeignText implements Rule
{
    /** Braces doubled round a name in blanks, a filter, or the sign of a section: nobody's script has them. */
    private const string MUSTACHE = '(?<!\{)\{\{(?:(?:htmlspecialchars|htmlentities|rawurlencode|addslashes)\s[^{}]*'
        . '|\s+[\w.]+\s*(?:\|[^{}]*)?|[#/^>]\s*[\w./]+[^{}]*)\}\}(?!\})';

    /** What scripts and style sheets have as well. */
    private const array MARKUP = [
        '\{\{--',
        '(?<!\{)\{\{\s*\$\w[^{}]*\}\}',
        '(?<!\{|\)|\) |=>|=> )\{\{\s*[\w.]+\s*(?:[[(]|(?:[-+*/%\~.<>]|[=!<>]=|&&|\|\||\?\??)\s)[^{};]*\}\}',
        '(?<!\{)\{\{(?<name>\w+)\}\}(?!\})',
        '(?<![\w.@-])@(?:if|unless|isset|empty|foreach|forelse|for|while|include|extends)\s*\(',
    ];

    /** @param array<array-key, mixed> $data without which a name in doubled braces is taken for a text that is meant */
    public function __construct(private array $data) {}

    public function check(Template $template): iterable
    {
        $pattern = '~' . self::MUSTACHE . '|(?<markup>' . implode('|', self::MARKUP) . ')~';
        preg_match_all($pattern, $template->text, $matches, PREG_OFFSET_CAPTURE | PREG_SET_ORDER | PREG_UNMATCHED_AS_NULL);
        $lineEnd = 0;
        foreach ($matches as $match) {
            [$found, $offset] = $match[0];
            $isForeign = $match['markup'][0] === null || $template->isMarkup($offset);
            $isKnown = $match['name'][0] === null || array_key_exists($match['name'][0], $this->data);
            if ($offset >= $lineEnd && $isForeign && $isKnown) {
                $lineEnd = $offset + strcspn($template->text, "\n", $offset);
                yield $offset => $this->messageFor((string) $found);
            }
        }
    }

    private function messageFor(string $found): string
    {
        return match (true) {
            $found === '{{--' => ForeignSyntax::COMMENT,
            $found[0] === '@' => 'This is text: write {optional path}…{/optional}, {dynamic path}…{/dynamic} or {include part.tpl}',
            default => 'A doubled brace is text: a tag has one brace and no blank behind it',
        };
    }
}
