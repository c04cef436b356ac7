<?php

declare(strict_types=1);

namespace Zorvel\Playground;

use PhpToken;

/**
 * Reads a value written in PHP, as `['name' => 'Ann', 'sum' => -1.5]`, and runs nothing: PHP's own tokenizer takes the text
 * apart, and what is no array, number, text, true, false or null, or texts joined by dots, is refused.
 */
final class PhpLiteral
{
    /** An escape between double quotes; a backslash before anything else is itself. */
    private const string ESCAPE = '/\\\\(?:[nrtvef\\\\$"]|[0-7]{1,3}|x[0-9A-Fa-f]{1,2}|u\{[0-9A-Fa-f]+\})/';

    /** @var list<PhpToken> */
    private readonly array $tokens;

    private readonly int $lastLine;

    private int $next = 0;

    private function __construct(string $text)
    {
        $tokens = PhpToken::tokenize("<?php $text");
        $this->lastLine = 1 + substr_count(rtrim($text), "\n");
        $this->tokens = array_values(array_filter($tokens, static fn(PhpToken $token): bool => !$token->isIgnorable()));
    }

    /** @throws InvalidData */
    public static function read(string $text): mixed
    {
        $literal = new self($text);
        $literal->takes('return');
        $value = $literal->value();
        $literal->takes(';');

        return $literal->next === count($literal->tokens) ? $value : throw $literal->refusal();
    }

    private function value(): mixed
    {
        $value = $this->operand();
        while ($this->takes('.')) {
            $value = $this->text($value) . $this->text($this->operand());
        }

        return $value;
    }

    private function operand(): mixed
    {
        return match (true) {
            $this->takes('[') => $this->elements(']'),
            $this->takes('array') => $this->takes('(') ? $this->elements(')') : throw $this->refusal(),
            $this->takes('-') => -$this->number(),
            $this->sees([T_LNUMBER, T_DNUMBER]) => $this->number(),
            $this->sees([T_CONSTANT_ENCAPSED_STRING]) => self::unquoted($this->take()),
            $this->takes('true') => true,
            $this->takes('false') => false,
            $this->takes('null') => null,
            default => throw $this->refusal(),
        };
    }

    /** @return array<array-key, mixed> */
    private function elements(string $end): array
    {
        $elements = [];
        while (!$this->takes($end)) {
            $value = $this->value();
            if ($this->takes('=>')) {
                $elements[$this->key($value)] = $this->value();
            } else {
                $elements[] = $value;
            }
            $this->takes(',') || $this->sees([$end]) || throw $this->refusal();
        }

        return $elements;
    }

    private function key(mixed $value): int|string
    {
        return is_int($value) || is_string($value) ? $value : throw $this->refusal();
    }

    private function text(mixed $value): string
    {
        return is_scalar($value) ? (string) $value : throw $this->refusal();
    }

    private function number(): int|float
    {
        $digits = str_replace(['_', 'o', 'O'], '', $this->tokens[$this->next]->text ?? '');
        $isWhole = $this->sees([T_LNUMBER]);
        $isWhole || is_numeric($digits) || throw $this->refusal();
        $this->next++;

        return $isWhole ? intval($digits, 0) : (float) $digits;
    }

    private static function unquoted(string $quoted): string
    {
        $text = substr($quoted, 1, -1);

        return $quoted[0] === "'"
            ? strtr($text, ["\\'" => "'", '\\\\' => '\\'])
            : (string) preg_replace_callback(self::ESCAPE, static fn(array $escape): string => self::unescaped($escape[0]), $text);
    }

    private static function unescaped(string $escape): string
    {
        return match ($escape[1]) {
            'e' => "\e",
            'u' => (string) mb_chr((int) hexdec(trim(substr($escape, 2), '{}')), 'UTF-8'),
            default => stripcslashes($escape),
        };
    }

    /** @param list<int|string> $kinds as PhpToken::is() knows them */
    private function sees(array $kinds): bool
    {
        return isset($this->tokens[$this->next]) && $this->tokens[$this->next]->is($kinds);
    }

    private function takes(string $word): bool
    {
        $isNext = strtolower($this->tokens[$this->next]->text ?? '') === $word;
        $this->next += (int) $isNext;

        return $isNext;
    }

    private function take(): string
    {
        return $this->tokens[$this->next++]->text;
    }

    private function refusal(): InvalidData
    {
        $token = $this->tokens[$this->next] ?? null;
        $allowed = 'arrays, numbers, texts, true, false and null';

        return $token === null
            ? new InvalidData('The data ends too early', $this->lastLine)
            : new InvalidData("The data may hold $allowed; not $token->text", $token->line);
    }
}
