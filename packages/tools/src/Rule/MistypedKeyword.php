<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\Tag;
use Zorvel\Syntax\TagKind;
use Zorvel\Tools\Template\Template;

/** A first word that is nearly a keyword, or a filter of another engine: what follows comes out unescaped. */
final readonly class MistypedKeyword extends TagRule
{
    /** Words of PHP and of other engines. Those that data has, too, as "date" and "title", are left out. */
    private const array FOREIGN_FILTERS = ['capitalize', 'e', 'h', 'json', 'lower', 'nl2br', 'number_format', 'raw', 'striptags', 'strip_tags',
        'strtolower', 'strtoupper', 'trim', 'ucfirst', 'ucwords', 'upper'];

    private const string FOREIGN_FILTER = '/^(esc|html|url)(?![a-z])|(?i:escape|encode|specialchars)/';

    /** One letter in so many may be wrong. */
    private const int LETTERS_PER_SLIP = 5;

    /** @param array<array-key, mixed> $data in which the word may be a path after all */
    public function __construct(private array $data) {}

    protected function messageFor(Tag $tag, Template $template): ?string
    {
        $isMeant = $tag->kind === TagKind::Variable && preg_match('/^!?([a-z][\w-]*)\s+[\w.*[$]/i', $tag->text, $match) === 1;
        if (!$isMeant || array_key_exists($match[1], $this->data)) {
            return null;
        }
        $word = strtolower($match[1]);
        $keyword = array_find(TagKind::cases(), fn(TagKind $kind): bool => $this->isNearly($kind->value, $word));
        $advice = $keyword === null ? 'the filters are htmlspecialchars, htmlentities, rawurlencode and addslashes' : "write {{$keyword->value} path}";

        return $keyword !== null || in_array($word, self::FOREIGN_FILTERS, true) || preg_match(self::FOREIGN_FILTER, $match[1]) === 1
            ? "\"$match[1]\" is no keyword but a path, and what is found comes out unescaped: $advice"
            : null;
    }

    private function isNearly(string $keyword, string $word): bool
    {
        return levenshtein($keyword, $word) <= intdiv(strlen($keyword), self::LETTERS_PER_SLIP);
    }
}
