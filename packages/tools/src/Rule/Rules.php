<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Tools\Template\Engine;
use Zorvel\Tools\Template\Folders;
use Zorvel\Tools\Template\Includes;

/** The rules by their names. Of several warnings about one tag, that of the first rule is told. */
final readonly class Rules
{
    /** @var array<string, Rule> */
    public array $errors;

    /** @var array<string, Rule> */
    public array $warnings;

    public function __construct(Folders $folders, Engine $engine)
    {
        $this->errors = [
            'broken-tag' => new BrokenTag($engine),
            'unexpected-closing-tag' => new UnexpectedClosingTag($engine),
            'unclosed-section' => new UnclosedSection($engine),
        ];
        $this->warnings = [
            'byte-order-mark' => new ByteOrderMark(),
            'foreign-syntax' => new ForeignSyntax(),
            'swallowed-tag' => new SwallowedTag(),
            'unclosed-tag' => new UnclosedTag(),
            'glued-keyword' => new GluedKeyword(),
            'missing-path' => new MissingPath(),
            'filter-words' => new FilterWords(),
            'loop-name-blanks' => new LoopNameBlanks(),
            'compare-blanks' => new CompareBlanks(),
            'compare-path' => new ComparePath(),
            'quoted-key' => new QuotedKey(),
            'unknown-loop' => new UnknownLoop(new Includes($folders)),
            'missing-include' => new MissingInclude($folders),
        ];
    }
}
