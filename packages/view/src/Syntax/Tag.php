<?php

declare(strict_types=1);

namespace Zorvel\Syntax;

/** One tag of a template, as the extension understands it. */
final readonly class Tag
{
    private const string BLANKS = " \t\r\n\f\v";

    public TagKind $kind;

    /** The text behind the keyword, trimmed; nothing but blanks is left as it is. */
    public string $parameter;

    /**
     * @param string $text what stands between the braces, each "{{" of it read as one brace
     * @param int $offset the byte of the source at which the opening brace stands
     * @param int $length bytes, both braces included
     * @param int $line of the opening brace, from 1
     * @param bool $isClosed false for a tag that the source ends in
     */
    public function __construct(
        public string $text,
        public int $offset,
        public int $length,
        public int $line,
        public bool $isClosed,
    ) {
        $this->kind = TagKind::of($text);
        $rest = substr($text, strlen($this->kind->value));
        $trimmed = trim($rest, self::BLANKS);
        $this->parameter = $trimmed === '' ? $rest : $trimmed;
    }

    /**
     * The paths that the tag names, as written. A variable names one in each word before its default.
     *
     * @return list<string>
     */
    public function paths(): array
    {
        return match (true) {
            $this->kind->closes() => [],
            $this->kind->isLoop() => [substr($this->parameter, $this->commaEnd())],
            $this->kind->closing() !== null => [strstr($this->parameter, ' ', true) ?: $this->parameter],
            $this->kind === TagKind::Variable => $this->alternatives(),
            default => [$this->parameter],
        };
    }

    /** The name that a loop's tag gives to the loop; empty when it gives none. */
    public function loopName(): string
    {
        return $this->kind->isLoop() ? substr($this->parameter, 0, max(0, $this->commaEnd() - 1)) : '';
    }

    /** What stands behind a section's path: the text to compare with, its quotes included; null when there is none. */
    public function compareText(): ?string
    {
        $isOptional = $this->kind->closing() === TagKind::EndOptional;
        $text = $isOptional ? strstr($this->parameter, ' ') : false;

        return $text === false ? null : substr($text, 1);
    }

    /** Whether the tag is a variable with a default. */
    public function hasDefault(): bool
    {
        return $this->kind === TagKind::Variable && str_contains($this->parameter, "'");
    }

    /** @return list<string> */
    private function alternatives(): array
    {
        $words = explode("'", $this->parameter, 2)[0];

        return preg_split('/[ \t\r\n\f\v]+/', $words, -1, PREG_SPLIT_NO_EMPTY) ?: [];
    }

    private function commaEnd(): int
    {
        $comma = strpos($this->parameter, ',');

        return $comma === false ? 0 : $comma + 1;
    }
}
