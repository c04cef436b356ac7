<?php

declare(strict_types=1);

/** An entry into user code; it may act. */
final class Entry
{
    public static int $count = 0;
    public static bool $hasActed = false;
    public static ?Closure $act = null;

    public static function reached(): void
    {
        ++self::$count;
        self::$act && (self::$act)();
    }
}

/** in://N is the input's part N, read in small pieces. */
final class Files
{
    /** @var list<string> */
    public static array $texts = [];
    public $context;
    private string $rest;

    public function stream_open(string $name): bool
    {
        Entry::reached();
        $this->rest = self::$texts[substr($name, 5)] ?? '';
        return isset(self::$texts[substr($name, 5)]);
    }

    public function stream_read(): string
    {
        Entry::reached();
        [$piece, $this->rest] = [substr($this->rest, 0, 5), substr($this->rest, 5)];
        return $piece;
    }

    public function stream_eof(): bool
    {
        Entry::reached();
        return $this->rest === '';
    }

    public function stream_close(): void
    {
        Entry::reached();
    }

    public function stream_set_option(): bool
    {
        return false;
    }
}

/** An object whose text is made by code that turns against the call. */
final class Trap
{
    public static int $calls = 0;

    public function __construct(private string $act, private Data $data) {}

    public function __toString(): string
    {
        Entry::reached();
        match ($this->act) {
            't' => throw new Exception(),
            'x' => exit,
            'c' => array_map(fclose(...), get_resources('stream')),
            'z' => ++self::$calls < 4 && $this->data->callAgain(),
            default => $this->data->turn($this->act),
        };
        return "<o'\xE9&\0\">";
    }
}

#[AllowDynamicProperties]
final class Row
{
    public mixed $a;
    public ?string $b = null;
    public int $unset;
    private int $c = 7;

    public function __construct(mixed $value)
    {
        $this->a = $value;
    }
}

/** Reads the data part of an input, as input.h tells. */
final class Data
{
    private const array LONGER = ['N' => 'num', 'V' => 'visible', '-' => -1, '+' => 4294967295, '.' => '007', '~' => '2nd'];

    /** Those that run within another. */
    public static int $calls = 0;
    /** @var array<mixed> */
    public array $root;
    private array $cells = [];
    private array $rows = [];
    private int $at;

    public function __construct(private string $text)
    {
        $this->at = strcspn($text, '[') + 1;
        $this->root = $this->elements();
    }

    private function take(): string
    {
        return $this->text[$this->at++] ?? '';
    }

    private function value(): mixed
    {
        $sign = $this->take();
        return match ($sign) {
            '[' => $this->elements(),
            'A' => new ArrayObject($this->elements()),
            "'", '`' => $this->upTo($sign),
            'p' => $this->rows[] = new Row($this->value()),
            'l', 'y' => $this->rows[] = $this->lazy($sign === 'y', $this->value()),
            'o' => new Trap($this->take(), $this),
            't' => true, 'f' => false, 'd' => 1.5, 'D' => 0.0, 'm' => PHP_INT_MIN,
            default => ctype_digit($sign) ? (int) $sign : null,
        };
    }

    private function upTo(string $quote): string
    {
        $start = $this->at;
        $this->at += strcspn($this->text, $quote, $start) + 1;
        return substr($this->text, $start, $this->at - $start - 1);
    }

    private function elements(): array
    {
        $array = [];
        while (!in_array($sign = $this->take(), ['', ']'], true) && count($array) < 8) {
            $key = $sign === '&' ? $this->take() : $sign;
            $key = self::LONGER[$key] ?? $key;
            $array[$key] = $this->value();
            if ($sign === '&') {
                $this->cells[] = &$array[$key];
            }
        }
        return $array;
    }

    private function lazy(bool $proxy, mixed $value): Row
    {
        $class = new ReflectionClass(Row::class);
        $init = function (Row $row) use ($value): void {
            Entry::reached();
            $this->turn('e');
            $row->a = $value;
        };
        $make = function () use ($value): Row {
            Entry::reached();
            $this->turn('e');
            return new Row($value);
        };
        return $proxy ? $class->newLazyProxy($make) : $class->newLazyGhost($init);
    }

    /** A call within the call, which may fail without its failing. */
    public function callAgain(): void
    {
        ++self::$calls;
        try {
            zorvel('{a}{dynamic a}{*}{/dynamic}', $this->root, true);
        } finally {
            --self::$calls;
        }
    }

    /** Writes to all that the template may be walking. */
    public function turn(string $act): void
    {
        foreach ($this->cells as &$cell) {
            $cell = match ($act) {
                'e' => null,
                'g' => array_fill(0, 9, $cell), // one more than there is room for
                default => $cell,
            };
        }
        foreach ($this->rows as $row) {
            match ($act) {
                'e' => $row->a = null,
                'u' => (function () { unset($this->a, $this->b); })->call($row),
                'r' => new ReflectionClass($row)->resetAsLazyProxy($row, fn() => new Row(1)),
                'd' => $row->dynamic = 1,
                default => null,
            };
        }
    }
}

stream_wrapper_register('in', Files::class);

/** @return array{string, string} the data and the template */
function readInput(string $input): array
{
    Files::$texts = explode("\n--\n", $input, 6) + ['', ''];
    return [Files::$texts[0], Files::$texts[1]];
}

/** True for a warning of the extension's, unless it is that of a call within the call. */
function isOurs(string $message): bool
{
    static $heads = ['Could not open file', 'Missing', 'Unexpected', 'Bad formated', 'Include block bad', 'Dynamic block bad',
        'Variable block bad', 'Template is', 'std::', 'Error while parsing parameters'];
    return Data::$calls === 0 && array_any($heads, fn($head) => str_starts_with($message, $head));
}
