/// One whole request per input. An input is a few parts with a line of "--" between them: the data, the
/// template, and files that the template may include as in://2, in://3, …:
///
///     h[a[0'x'1'y']
///     --
///     {dynamic a}{*}{/dynamic}{include in://2}
///     --
///     more text
///
/// The template is rendered as text and as the file in://1, which arrives in small pieces. The data is read
/// by the class Data below, to which any bytes mean something.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "embed.h"

namespace
{

/// Prints only what is wrong.
const char program[] = R"php(
final class Files
{
    public static array $texts = [];
    public $context;
    private string $rest;

    public function stream_open(string $name): bool
    {
        $this->rest = self::$texts[substr($name, 5)] ?? '';
        return isset(self::$texts[substr($name, 5)]);
    }
    public function stream_read(): string
    {
        [$piece, $this->rest] = [substr($this->rest, 0, 5), substr($this->rest, 5)];
        return $piece;
    }
    public function stream_eof(): bool { return $this->rest === ''; }
    public function stream_set_option(): bool { return false; }
}

/// An object whose text is made by code that turns against the call.
final class Trap
{
    public static int $calls = 0;

    public function __construct(private string $act, private Data $data) {}
    public function __toString(): string
    {
        match ($this->act) {
            't' => throw new Exception,
            'x' => exit,
            'c' => array_map(fclose(...), get_resources('stream')),
            'z' => ++self::$calls < 4 && zorvel('{a}{dynamic a}{*}{/dynamic}', $this->data->root, true),
            default => $this->data->turn($this->act),
        };
        return "<o'\xE9&\0\">";
    }
}

#[AllowDynamicProperties]
final class Row
{
    public $a;
    public ?string $b = null;
    public int $unset;

    public function __construct(mixed $value) { $this->a = $value; }
}

/// Some letters, for error handlers, then "[" and pairs of a key and a value. A key is one byte; "&" in front makes
/// the element a reference. A value is "[" pairs "]", "'" text "'", a digit, "o" and an act: a Trap, "p" and a
/// value: an object with properties, "l" and a value: its lazy ghost, "y": its proxy, and t, f, d, m: scalars.
final class Data
{
    public array $root;
    private array $cells = [];
    private array $rows = [];
    private int $at;

    public function __construct(private string $text)
    {
        $this->at = strcspn($text, '[') + 1;
        $this->root = $this->elements();
    }
    private function take(): string { return $this->text[$this->at++] ?? ''; }
    private function value(): mixed
    {
        $sign = $this->take();
        return match ($sign) {
            '[' => $this->elements(),
            "'" => substr($this->text, $start = $this->at, ($this->at += strcspn($this->text, "'", $this->at) + 1) - $start - 1),
            'p' => $this->rows[] = new Row($this->value()),
            'l', 'y' => $this->rows[] = $this->lazy($sign === 'y', $this->value()),
            'o' => new Trap($this->take(), $this),
            't' => true, 'f' => false, 'd' => 1.5, 'm' => PHP_INT_MIN,
            default => ctype_digit($sign) ? (int) $sign : null,
        };
    }
    private function elements(): array
    {
        $array = [];
        while (!in_array($sign = $this->take(), ['', ']'], true) && count($array) < 8) {
            $key = $sign === '&' ? $this->take() : $sign;
            $key = ['N' => 'num', 'V' => 'visible', '-' => -1, '+' => 4294967295, '.' => '007'][$key] ?? $key;
            $array[$key] = $this->value();
            if ($sign === '&')
                $this->cells[] = &$array[$key];
        }
        return $array;
    }
    private function lazy(bool $proxy, mixed $value): Row
    {
        $class = new ReflectionClass(Row::class);
        $init = function (Row $row) use ($value) { $this->turn('e'); $row->a = $value; };
        $make = function () use ($value) { $this->turn('e'); return new Row($value); };
        return $proxy ? $class->newLazyProxy($make) : $class->newLazyGhost($init);
    }
    /// Writes to all that the template may be walking.
    public function turn(string $act): void
    {
        foreach ($this->cells as &$cell)
            $cell = match ($act) { 'e' => null, 'g' => array_fill(0, 40, $cell), default => $cell };
        foreach ($this->rows as $row)
            match ($act) {
                'e' => $row->a = null,
                'u' => (function () { unset($this->a, $this->b); })->call($row),
                'r' => (new ReflectionClass($row))->resetAsLazyProxy($row, fn() => new Row(1)),
                'd' => $row->dynamic = 1,
                default => null,
            };
    }
}

function page(string $text, string $dataText, bool $inMemory): ?string
{
    $data = new Data($dataText);
    $warnings = 0;
    set_error_handler(function ($level, $message) use ($data, $dataText, &$warnings) {
        $ours = '/^(Could not open file|Missing|Unexpected|Bad formated|\w+ block bad|Template is)/';
        $warnings += preg_match($ours, $message);
        match ($dataText[0] ?? '') { 'h' => $data->turn('e'), 'H' => throw new Exception, default => null };
    });
    $before = strpbrk($dataText, 'hHolpy') === false ? serialize($data->root) : null;
    try {
        $page = zorvel($text, $data->root, $inMemory);
        echo $warnings !== (int) ($page === null) ? "$warnings warnings" : '';
    } catch (Throwable) {
        echo $warnings > 0 && $dataText[0] !== 'H' ? 'warned and threw' : '';
    }
    echo $before !== null && $before !== serialize($data->root) ? 'changed the data' : '';
    return $page ?? null;
}

stream_wrapper_register('in', Files::class);
Files::$texts = $parts = explode("\n--\n", $input, 6) + ['', ''];
$same = page($parts[1], $parts[0], true) === page('in://1', $parts[0], false);
echo $same || str_contains($parts[1], 'include') ? '' : 'the file and the text differ';
)php";

/// Nested loops and includes multiply; what takes minutes is no finding.
bool isSmall(const std::string& input, const std::string& word, int most)
{
    for (std::size_t at = 0; (at = input.find(word, at)) != std::string::npos; ++at)
        --most;
    return most >= 0;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    setenv("USE_ZEND_ALLOC", "0", 1);
    embed::start("allow_url_fopen=1");
    return std::atexit(embed::stop);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const std::string input(reinterpret_cast<const char*>(bytes), size);
    if (!isSmall(input, "dynamic", 8) || !isSmall(input, "include", 8))
        return 0;
    const embed::Request request;
    zval value;
    ZVAL_STRINGL(&value, input.data(), input.size());
    zend_hash_str_update(&EG(symbol_table), ZEND_STRL("input"), &value);
    const std::string wrong = embed::run(program);
    if (wrong.empty())
        return 0;
    std::fprintf(stderr, "%s for the input:\n%s\n", wrong.c_str(), input.c_str());
    std::abort();
}
