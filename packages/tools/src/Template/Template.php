<?php

declare(strict_types=1);

namespace Zorvel\Tools\Template;

use Zorvel\Syntax\Tag;
use Zorvel\Syntax\TagReader;
use Zorvel\Tools\Finding;
use Zorvel\Tools\Level;

/** A template's text with its tags, and what is open around each of them. */
final readonly class Template
{
    /** @var list<Tag> */
    public array $tags;

    public Nesting $nesting;

    /**
     * @param string $file the name to show
     * @param bool $isText whether there is no such file
     */
    public function __construct(public string $file, public string $text, public bool $isText = false)
    {
        $this->tags = new TagReader()->read($text);
        $this->nesting = new Nesting($this->tags);
    }

    /** @throws UnreadableFile */
    public static function fromFile(string $file): self
    {
        $text = @file_get_contents($file);

        return $text === false ? throw new UnreadableFile("Cannot read $file") : new self($file, $text);
    }

    public function finding(int $offset, Level $level, string $rule, string $message): Finding
    {
        $before = substr($this->text, 0, $offset);
        $line = substr_count($before, "\n") + 1;
        $column = self::characters(substr($before, $line === 1 ? 0 : (int) strrpos($before, "\n") + 1)) + 1;

        return new Finding($this->file, $line, $column, $level, $rule, self::oneLine($message));
    }

    /** Of a text that is not UTF-8, about its bytes. */
    private static function characters(string $text): int
    {
        return (int) preg_match_all('/[^\x80-\xBF]/', $text);
    }

    /** A tag that the message cites may run over several lines, and hold any byte. */
    private static function oneLine(string $message): string
    {
        return (string) preg_replace(['/\s+/', '/[\x00-\x1F\x7F]/'], [' ', '?'], $message);
    }
}
