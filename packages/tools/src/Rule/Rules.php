<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Tools\Finding;
use Zorvel\Tools\Level;
use Zorvel\Tools\Template\Folders;
use Zorvel\Tools\Template\Includes;
use Zorvel\Tools\Template\Template;

/** The rules by their names. */
final readonly class Rules
{
    /** @var array<string, array<string, Rule>> by the level of what they find */
    private array $rules;

    /** @param ?array<array-key, mixed> $data sample data, when there is some */
    public function __construct(Folders $folders, Includes $includes, ?array $data = null)
    {
        $this->rules = [
            Level::Error->value => [
                'unreadable' => new Unreadable(),
                'broken-tag' => new BrokenTag(),
                'unexpected-closing-tag' => new UnexpectedClosingTag(),
                'unclosed-section' => new UnclosedSection(),
            ],
            Level::Warning->value => [
                'byte-order-mark' => new ByteOrderMark(),
                'mistyped-keyword' => new MistypedKeyword($data ?? []),
                'foreign-syntax' => new ForeignSyntax($data ?? []),
                'swallowed-tag' => new SwallowedTag($data),
                'lost-brace' => new LostBrace(),
                'unclosed-tag' => new UnclosedTag(),
                'glued-keyword' => new GluedKeyword(),
                'filter-words' => new FilterWords(),
                'loop-name-blanks' => new LoopNameBlanks(),
                'section-expression' => new SectionExpression(),
                'compare-blanks' => new CompareBlanks(),
                'compare-path' => new ComparePath(),
                'quoted-key' => new QuotedKey(),
                'unknown-loop' => new UnknownLoop($includes),
                'missing-include' => new MissingInclude($folders),
            ],
        ];
    }

    /** @return list<string> */
    public function names(): array
    {
        return array_keys(array_merge(...array_values($this->rules)));
    }

    /** @return iterable<Finding> */
    public function findings(Template $template): iterable
    {
        foreach ($this->rules as $level => $rules) {
            foreach ($rules as $name => $rule) {
                foreach ($rule->check($template) as $offset => $message) {
                    yield $template->finding($offset, Level::from($level), $name, $message);
                }
            }
        }
    }
}
