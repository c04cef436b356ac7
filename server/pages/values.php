<?php

// The data of the pages, and the user code in them.
declare(strict_types=1);

final readonly class Value implements Stringable
{
    /** @param Closure(string): string $act */
    public function __construct(private Closure $act, private string $token) {}

    public function __toString(): string
    {
        return ($this->act)($this->token);
    }
}

/** Template text that comes out of a stream in pieces. */
final class Stream
{
    /** @var resource|null */
    public $context;
    private static string $text;
    private int $place = 0;

    public static function of(string $text): string
    {
        stream_wrapper_register('page', self::class);
        self::$text = $text;
        return 'page://text';
    }

    public function stream_open(): bool
    {
        return true;
    }

    public function stream_read(): string
    {
        $piece = substr(self::$text, $this->place, 1000);
        $this->place += strlen($piece);
        return $piece;
    }

    public function stream_eof(): bool
    {
        return $this->place === strlen(self::$text);
    }

    /** @return array{} */
    public function stream_stat(): array
    {
        return [];
    }
}

/**
 * Rows as a database gives them: with numbers and null.
 *
 * @return array{token: string, rows: list<array{id: int, name: string, price: float, note: string|null}>}
 */
function rows(int $count, string $token): array
{
    $row = fn(int $i): array => [
        'id' => $i,
        'name' => $i % 10 === 0 ? "Chair & \"table\" $i" : "Chair $i",
        'price' => $i * 1.25,
        'note' => $i % 3 === 0 ? "as <$token> wished" : null,
    ];
    return ['token' => $token, 'rows' => array_map($row, range(1, $count))];
}

/**
 * What foreach by reference leaves behind.
 *
 * @param array{rows: array<array{name: string}>} $data
 * @return array<string, mixed>
 */
function referenced(array $data): array
{
    foreach ($data['rows'] as &$row) {
        $row['name'] .= '!';
    }
    return $data;
}

/** A template of so many loops over the rows, one in the other. */
function loops(int $depth, string $body): string
{
    return str_repeat('{dynamic rows}', $depth) . $body . str_repeat('{/dynamic}', $depth);
}

/** @param Closure(): (string|null) $act */
function caught(Closure $act): string
{
    try {
        return $act() ?? 'null';
    } catch (Throwable $thrown) {
        return $thrown::class . ': ' . $thrown->getMessage();
    }
}

/** @param Closure(): (string|null) $act */
function throwing(Closure $act): ?string
{
    set_error_handler(fn(int $level, string $message) => throw new ErrorException($message));
    try {
        return $act();
    } finally {
        restore_error_handler();
    }
}

/** @param Closure(): (string|null) $act */
function inFiber(Closure $act): ?string
{
    /** @var Fiber<void, string, string|null, string> $fiber */
    $fiber = new Fiber($act);
    $fiber->start();
    zorvel('{dynamic a}{*}{/dynamic}', ['a' => [1, 2]], true);
    $fiber->resume('resumed with ');
    return $fiber->getReturn();
}

/** Leaves the fiber, and comes back with what it is resumed with. */
function resumedWith(): string
{
    $text = Fiber::suspend();
    return is_string($text) ? $text : '';
}

/** Until the time limit strikes, mostly asleep: the limit counts the time that passes. */
function spin(): never
{
    while (true) {
        usleep(2000);
    }
}
