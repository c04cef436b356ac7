<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\Tag;
use Zorvel\Syntax\TagKind;
use Zorvel\Tools\Template\Template;

/** A first word that is nearly a keyword, or a filter of another engine: what follows comes out unescaped. */
final readonly class MistypedKeyword extends TagRule
{
    private const array FOREIGN_FILTERS = ['e', 'esc', 'escape', 'escapeurl', 'h', 'html', 'json_encode', 'lower', 'nl2br', 'raw', 'striptags',
        'strip_tags', 'trim', 'upper', 'url_encode', 'urlencode'];

    /** One letter in so many may be wrong. */
    private const int LETTERS_PER_SLIP = 5;

    protected function messageFor(Tag $tag, Template $template): ?string
    {
        if ($tag->kind !== TagKind::Variable || preg_match('/^!?([a-z]\w*)\s+[\w.*[]/i', $tag->text, $match) !== 1) {
            return null;
        }
        $word = strtolower($match[1]);
        $keyword = array_find(TagKind::cases(), fn(TagKind $kind): bool => $this->isNearly($kind->value, $word));
        $advice = $keyword === null ? 'the filters are htmlspecialchars, htmlentities, rawurlencode and addslashes' : "write {{$keyword->value} path}";

        return $keyword !== null || in_array($word, self::FOREIGN_FILTERS, true)
            ? "\"$match[1]\" is no keyword but a path, and what is found comes out unescaped: $advice"
            : null;
    }

    private function isNearly(string $keyword, string $word): bool
    {
        return levenshtein($keyword, $word) <= intdiv(strlen($keyword), self::LETTERS_PER_SLIP);
    }
}
