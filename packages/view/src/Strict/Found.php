<?php

declare(strict_types=1);

namespace Zorvel\Strict;

use Zorvel\Raw;

/** What a path names. It may be null: that is something other than nothing. */
final readonly class Found
{
    public mixed $value;

    public function __construct(mixed $value)
    {
        $this->value = $value instanceof Raw ? $value->data : $value;
    }

    /**
     * What the keys lead to from here.
     *
     * @param list<string> $keys
     */
    public function follow(array $keys): ?self
    {
        return array_reduce($keys, static fn(?self $found, string $key): ?self => $found?->at($key), $this);
    }

    /** @return array<array-key, mixed> what a loop over it goes through: null is not there */
    public function elements(): array
    {
        return is_array($this->value) ? array_filter($this->value, static fn(mixed $value): bool => $value !== null) : [];
    }

    /** What an optional section without a text to compare with asks. */
    public function isTrue(): bool
    {
        return (bool) ($this->at('visible')->value ?? (is_array($this->value) ? $this->elements() : $this->value));
    }

    /** What an optional section with one asks. */
    public function equals(string $text): bool
    {
        $text = preg_replace("/^[^']*'(.*)'[^']*$/s", '$1', $text);

        return match (true) {
            is_string($this->value) => $this->value === $text,
            is_int($this->value) => $this->value === (int) $text,
            is_bool($this->value) => $this->value === ($text !== '0'),
            default => false,
        };
    }

    /** PHP keeps a number under no text key, and the language knows the numbers from 0 to 4294967295. */
    public static function isNumber(string $key): bool
    {
        return (string) (int) $key === $key;
    }

    private function at(string $key): ?self
    {
        $isReached = !self::isNumber($key) || ($key >= 0 && $key <= 0xFFFFFFFF);

        return $isReached && is_array($this->value) && array_key_exists($key, $this->value)
            ? new self($this->value[$key])
            : null;
    }
}
