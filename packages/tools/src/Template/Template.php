<?php

declare(strict_types=1);

namespace Zorvel\Tools\Template;

use Zorvel\Syntax\Tag;
use Zorvel\Syntax\TagReader;
use Zorvel\Tools\Finding;
use Zorvel\Tools\Level;

/** A template's text with its tags, and how its sections are nested. */
final readonly class Template
{
    /** Bytes of a message. */
    private const int LONGEST = 400;

    private const string NO_MARKUP = '~<(script|style)\b[^>]*+>\K(?:[^<]++|<(?!/\1\b))*+~i';

    /** As in ${a.b}, f(){a.b}, ()=>{a.b} and a type in a comment, @param {a.b}. */
    private const string BEFORE_SCRIPT = '/[$)]$|=>$|@\w+ $/';

    /** @var list<Tag> */
    public array $tags;

    public Nesting $nesting;

    /** The text, with blanks in place of its scripts and style sheets. */
    private string $markup;

    private Places $places;

    /**
     * @param string $file the name to show
     * @param bool $isRead false when it could not be
     */
    public function __construct(public string $file, public string $text, public bool $isRead = true)
    {
        $this->tags = new TagReader()->read($text);
        $this->nesting = new Nesting($this->tags);
        $this->places = new Places($text);
        $this->markup = preg_replace_callback(self::NO_MARKUP, fn(array $match): string => str_repeat(' ', strlen($match[0])), $text) ?? $text;
    }

    public static function fromFile(string $file): self
    {
        $text = is_file($file) ? @file_get_contents($file) : false;

        return new self($file, (string) $text, $text !== false);
    }

    public static function fromInput(): self
    {
        return new self('(standard input)', (string) stream_get_contents(STDIN));
    }

    /** Whether a byte, other than a blank, stands in no script and no style sheet. */
    public function isMarkup(int $offset): bool
    {
        return $this->markup[$offset] === $this->text[$offset];
    }

    /** Whether a tag is likely a script's, wherever it stands. */
    public function isScripts(Tag $tag): bool
    {
        return preg_match(self::BEFORE_SCRIPT, substr($this->text, max(0, $tag->offset - 20), min(20, $tag->offset))) === 1;
    }

    public function finding(int $offset, Level $level, string $rule, string $message): Finding
    {
        [$line, $column] = $this->places->at($offset);

        return new Finding($this->file, $line, $column, $level, $rule, self::oneLine($message));
    }

    /** A tag that the message cites may run over several lines, hold any byte, and swallow half a script. */
    private static function oneLine(string $message): string
    {
        $line = (string) preg_replace(['/\s+/', '/[\x00-\x1F\x7F]/'], [' ', '?'], $message);

        return strlen($line) <= self::LONGEST ? $line : mb_substr($line, 0, 100, 'UTF-8') . ' … ' . mb_substr($line, -200, null, 'UTF-8');
    }
}
