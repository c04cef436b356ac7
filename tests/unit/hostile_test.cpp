#include <malloc.h>

#include <algorithm>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "embed.h"

namespace
{

// clang-format off
const std::string prologue = R"php(
    ini_set('display_errors', '0');
    register_shutdown_function(function () { echo (error_get_last()['type'] ?? 0) === E_ERROR ? 'fatal' : ''; });
    set_error_handler(function ($level, $message) { echo '[', substr($message, 0, 40), ']'; });
    function page($template, $data = [], $inMemory = true) {
        try { echo zorvel($template, $data, $inMemory) ?? 'null'; }
        catch (Throwable $thrown) { echo $thrown->getMessage(); }
    }
    function closeAll($close) { array_map($close, get_resources('stream')); }
    function closes($close) {
        file_put_contents($file = tempnam(sys_get_temp_dir(), ''), '{o}' . str_repeat('x', 9000));
        echo strlen(zorvel($file, ['o' => new Text(fn() => closeAll($close))]));
        unlink($file);
    }
    class Row { public $a = 1, $b = 'b', $c = 'c'; }
    function lazy($new, $make) { return ['num' => (new ReflectionClass(Row::class))->$new($make)]; }
    class Text {
        public function __construct(private $act, private $end = null) {}
        public function __toString(): string { return ($this->act)() ?? 'o'; }
        public function __destruct() { $this->end && ($this->end)(); }
    }
    /// in://TEXT is a file with that text, in://3 one that includes in://2.
    class Files {
        public static $acts = [];
        public $context, $text;
        public function stream_open($name) {
            $next = fn($n) => '{include in://' . $n[0] - 1 . '}';
            $this->text = preg_replace_callback('/^[1-9]\d*$/', $next, substr($name, 5));
            return $this->does('open');
        }
        public function stream_read() { $this->does('read'); [$piece, $this->text] = [$this->text, '']; return $piece; }
        public function stream_eof() { return $this->does('eof') && $this->text === ''; }
        public function stream_close() { $this->does('close'); }
        public function stream_set_option() { return false; }
        private function does($what) { isset(self::$acts[$what]) && (self::$acts[$what])(); return true; }
    }
    stream_wrapper_register('in', Files::class);
)php";

struct Program {
    const char* name;
    const char* code;
    /// All that it prints; behind a "*" anything may follow.
    const char* prints;
};

/// Where user code runs during a call; $act is what it does there. A call that went on would meet the stray closing tag.
const char* const places[] = {
    "page('{optional b}{/optional}{o}{/optional}', ['o' => new Text($act)]);",
    "page('{dynamic a}{*}{dynamic n::*}{/dynamic}{/dynamic}', ['a' => [new Text($act)]]);",
    "page('{dynamic a}{htmlentities *}{/dynamic}', ['a' => [new Text($act)]]);",
    "global $o; $o = new Text(function () { $GLOBALS['o'] = null; }, $act); page('{o}', ['o' => &$o]);",
    "global $a; $a = [new Text(function () { $GLOBALS['a'] = null; }, $act)]; page('{dynamic a}{*}{/dynamic}', ['a' => &$a]);",
    "set_error_handler($act); page('{a}{/optional}', ['a' => []]);",
    "set_error_handler($act); page('{dynamic a}{*}{/dynamic}', ['a' => [[]]]);",
    "set_error_handler($act); page('x{optional a}');",
    "set_error_handler($act); page([]);",
    "Files::$acts = ['open' => $act]; page('x{include in://y}{/optional}');",
    "Files::$acts = ['read' => $act]; page('in://x{a{/optional}', [], false);",
    "Files::$acts = ['eof' => $act]; page('in://x{include in://y}{/optional}', [], false);",
    "Files::$acts = ['close' => $act]; page('in://x', [], false) || 1;",
    "Files::$acts = ['close' => $act]; page('in://x{/optional}', [], false);",
    "Files::$acts = ['close' => $act]; page('x{include in://y}{o}{/optional}', ['o' => new Text(fn() => print('late'))]);",
    "Files::$acts = ['close' => $act]; page('x{include in://y{/optional}}z');",
    "page('{dynamic n,a}{dynamic n::*}{*}{/dynamic}{/dynamic}', ['a' => [lazy('newLazyGhost', $act)]]);",
    "page('{dynamic n,a}{dynamic n::*}{*}{/dynamic}{/dynamic}', ['a' => [lazy('newLazyProxy', $act)]]);",
};

/// Each ends the call there and then, and nothing but itself is heard of.
const Program acts[] = {
    {"fatal error", "fn() => str_repeat('x', 1 << 40)", "fatal"},
    {"exception", "fn() => throw new Exception('thrown')", "thrown"},
    {"type error", "fn() => throw new TypeError('thrown')", "thrown"},
    {"exit", "fn() => exit", ""},
    {"suspension", "fn() => Fiber::suspend()", ""},
};

const Program programs[] = {
    {"memory_limit in a conversion",
     "ini_set('memory_limit', '4M');"
     "page('{dynamic a}{*}{/dynamic}', ['a' => array_fill(0, 900, str_repeat('x', 9999))]);",
     "fatal"},
    {"memory_limit in a loop's filter",
     "ini_set('memory_limit', '4M'); page('{dynamic a}{htmlentities *}{/dynamic}', ['a' => [str_repeat('<', 3 << 19)]]);",
     "fatal"},
    {"memory_limit in a filter",
     "ini_set('memory_limit', '4M'); page('{addslashes a}', ['a' => str_repeat('\\'', 3 << 19)]);", "fatal"},
    {"memory_limit in the message",
     "ini_set('memory_limit', '4M'); page('{optional a}' . str_repeat('x', 5 << 18));", "fatal"},
    {"memory_limit while a file is read", "ini_set('memory_limit', '4M'); page('/dev/zero', [], false);", "fatal"},
    {"memory_limit while a page grows",
     "ini_set('memory_limit', '4M'); $d = ['r' => range(1, 1000), 'v' => str_repeat('x', 9999)];"
     "page('{dynamic r}{dynamic r}{dynamic r}{v}{/dynamic}{/dynamic}{/dynamic}', $d);",
     "fatal"},
    {"memory_limit while properties are copied",
     "$o = (object) array_flip(range(1, 1 << 18)); ini_set('memory_limit', (string) (memory_get_usage(true) + (1 << 20)));"
     "page('{dynamic n,a}{dynamic n::*}{*}{/dynamic}{/dynamic}', ['a' => [['num' => $o]]]);",
     "fatal"},
    {"memory_limit while a tree grows",
     "ini_set('memory_limit', '4M'); page(str_repeat('{v}{*}', 99999), ['v' => str_repeat('x', 9999)]);", "fatal"},

    {"hidden sections do not count",
     "ini_set('memory_limit', '6M'); page(str_repeat('{optional a}<p>x</p>{/optional}', 20000));", ""},
    {"page nearly as large as memory_limit",
     "ini_set('memory_limit', '10M'); $d = ['r' => range(1, 700), 'v' => str_repeat('x', 10000)];"
     "echo strlen(zorvel('{dynamic r}{v}{/dynamic}', $d, true));",
     "7000000"},

    {"array emptied while walked",
     "$a = [new Text(function () use (&$a) { $a = []; }), 'x', 'y'];"
     "page('{dynamic a}{*}{*},{/dynamic}', ['a' => &$a]);",
     "oo,xx,yy,"},
    {"array that grows while walked",
     "$a = [new Text(function () use (&$a) { for ($i = 0; $i < 99; $i++) $a[] = 'z'; }), 'x'];"
     "page('{rdynamic a}{*},{/rdynamic}', ['a' => &$a]);",
     "x,o,"},
    {"array overwritten by its first element's page",
     "$a = [1]; $o = new Text(function () use (&$a) { $a = 5; });"
     "page('{dynamic n,a}{o}{n::*}{/dynamic}', ['a' => &$a, 'o' => $o]);",
     ""},
    {"array overwritten before its loop",
     "$a = [1]; $o = new Text(function () use (&$a) { $a = 5; });"
     "page('{o}{dynamic n,a}{n::*}{/dynamic}', ['a' => &$a, 'o' => $o]);",
     "o"},
    {"array released by an error handler",
     "set_error_handler(function () use (&$a) { $a = null; }); $a = [[], [1]];"
     "page('{dynamic a}{*}{*}{/dynamic}', ['a' => &$a]);",
     "ArrayArrayArrayArray"},
    {"collector that runs while rows are walked",
     "class N { public $rows; static $dead = 0; function __destruct() { self::$dead++; } }"
     "for ($i = 0; $i < 100; $i++) {"
     "    $n = new N; $n->rows = [new Text(function () { $GLOBALS['cell'] = null; gc_collect_cycles(); return ''; }), $n];"
     "    $cell = $n->rows; unset($n);"
     "    page('{dynamic a}{optional [*] 0}{*}{/optional}{/dynamic}', ['a' => &$cell]);"
     "}"
     "gc_collect_cycles(); echo N::$dead;",
     "100"},
    {"destructors that fail when the collector runs at a loop's end",
     "class Boom { public $self; function __destruct() { throw new Exception('kept'); } }"
     "$rows = array_map(fn($i) => ['in' => [[$i]]], range(1, 20000));"
     "$boom = new Boom; $boom->self = $boom; unset($boom);"
     "while (gc_status()['roots'] < 9000) { $cycle = new stdClass; $cycle->self = $cycle; unset($cycle); }"
     "$turns = 0; set_error_handler(function () { $GLOBALS['turns']++; });"
     "page('{dynamic r}{dynamic *::in}x{/dynamic}{*::in}{/dynamic}', ['r' => $rows]); echo $turns < 19999;",
     "kept1"},
    {"properties unset while walked",
     "$r = new Row; $r->a = new Text(function () use ($r) { unset($r->b); $r->c = null; });"
     "page('{dynamic n,a}{dynamic n::*}{*},{/dynamic}{/dynamic}', ['a' => [['num' => $r]]]);",
     "o,b,c,"},
    {"property added while walked",
     "$r = new Row; $r->a = new Text(function () use ($r) { @$r->d = 1; });"
     "page('{dynamic n,a}{dynamic n::*}{[*]}{/dynamic}{/dynamic}', ['a' => [['num' => $r]]]);"
     "$r->b = 'new'; foreach ($r as $k => $v) echo $k === 'b' ? $v : '';",
     "abcnew"},
    {"proxy reset while walked",
     "$p = lazy('newLazyProxy', function () {"
     "    $reset = fn() => (new ReflectionClass(Row::class))->resetAsLazyProxy($GLOBALS['p']['num'], fn() => new Row);"
     "    $r = new Row; $r->a = new Text(function () use ($reset) { $reset(); }); return $r;"
     "});"
     "page('{dynamic n,a}{dynamic n::*}{*},{/dynamic}{/dynamic}', ['a' => [$p]]);",
     "o,b,c,"},
    {"ghost that overwrites itself",
     "$r = new Row; $r->a = lazy('newLazyGhost', function () use ($r) { $r->a = null; })['num'];"
     "page('{dynamic n,a}{dynamic n::*}{*::0}.{/dynamic}{/dynamic}', ['a' => [['num' => $r]]]);",
     "..."},

    {"fclose on the template", "set_error_handler(fn() => true); closes(fclose(...));", "9001"},
    {"pclose on the template", "closes(pclose(...));", "4090"},
    {"fclose in a read",
     "set_error_handler(fn() => true); Files::$acts = ['read' => fn() => closeAll(fclose(...))];"
     "page('in://x{a}', ['a' => 1], false);",
     "x1"},
    {"fclose in a test for the end",
     "set_error_handler(fn() => true); Files::$acts = ['eof' => fn() => closeAll(fclose(...))];"
     "page('in://x{a}', ['a' => 1], false);",
     "x1"},
    {"calls within the call",
     "$o = new Text(function () use (&$d) { page('{dynamic a}{*}{/dynamic}', $d); page('{/optional}'); });"
     "$d = ['o' => $o, 'a' => [1, 2]]; page('{dynamic a}{o}{*}{/dynamic}', $d);",
     "12[Unexpected closing optional tag in {/opt]nullo1o2"},
    {"calls without end", "$t = new Text(fn() => zorvel('{t}', ['t' => $GLOBALS['t']], true)); page('{t}', ['t' => $t]);",
     "Maximum call stack size*"},

    {"bad arguments and a handler that autoloads",
     "spl_autoload_register(fn() => print('load'));"
     "set_error_handler(fn() => class_exists('None') || print('end')); page([]);",
     "loadendzorvel(): Argument #1 ($fileName) must be of type string, array given"},
    {"bad arguments and a handler that throws",
     "set_error_handler(fn() => throw new Exception('handler')); page(new Text(fn() => exit)); echo 'alive';", ""},
    {"bad arguments and a handler that throws instead",
     "set_error_handler(fn() => throw new Exception('handler'));"
     "try { zorvel([], []); } catch (Exception $e) { echo $e->getMessage(), ' ', $e->getPrevious()::class; }",
     "handler TypeError"},
    {"bad arguments and a handler that exits", "set_error_handler(fn() => exit('exit')); page([]);", "exit"},
    {"bad arguments and text that throws",
     "page(new Text(fn() => throw new TypeError('own')));", "[Error while parsing parameters]own"},
    {"names with NUL bytes",
     "page(\"in://x\\0y\", [], false); page(\"x{include in://y\\0}{include b}\", ['b' => \"\\0in://z\"]);",
     "[Could not open file in://x]nullx"},
    {"open_basedir",
     "$file = tempnam(sys_get_temp_dir(), ''); ini_set('open_basedir', '/proc');"
     "page($file, [], false); page('{include a}', ['a' => $file]);",
     "[PHP Request Startup: open_basedir restri][Could not open file /*"},
};

// clang-format on

/// Bytes of the heap in use, the C++ side of the process: a request's own memory is mapped by the engine.
/// Under AddressSanitizer 0: there leaks are its business.
std::size_t heapInUse()
{
    const auto heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

void expect(const std::string& name, const std::string& code, std::string prints)
{
    std::string printed = embed::request(prologue + code);
    if (prints.ends_with('*')) {
        prints.pop_back();
        printed.resize(std::min(printed.size(), prints.size()));
    }
    EXPECT_EQ(printed, prints) << name;
}

void runAll(int rounds)
{
    const embed::RequestThread thread;
    for (; rounds > 0; --rounds) {
        for (const auto& [name, code, prints] : programs)
            expect(name, code, prints);
        for (const std::string place : places) {
            for (const auto& [name, act, prints] : acts)
                expect(name + (" in " + place),
                       std::string("$act = ") + act + "; (new Fiber(function () use ($act) { " + place +
                           " }))->start();",
                       prints);
            expect(place, std::string("$act = ") + acts[0].code + "; " + place, acts[0].prints);
        }
    }
}

void runOnThreads(int rounds)
{
    std::thread other(runAll, rounds);
    std::thread(runAll, rounds).join();
    other.join();
}

TEST(Hostile, LeavesNothingBehind)
{
    runOnThreads(1);
    const std::size_t before = heapInUse();
    runOnThreads(before > 0 ? 20 : 0);
    EXPECT_LE(heapInUse(), before + 1000);
}

TEST(Hostile, EndsWhereTheStackEnds)
{
    const std::size_t smallStack = (std::size_t{224} << 10) + EG(reserved_stack_size); // 256 KiB but for sanitizers
    // clang-format off
    const Program deep[] = {
        {"hidden", "page(str_repeat('{optional a}', 100000));", "[Template is nested too deeply in {option]null"},
        {"shown", "page(str_repeat('{optional a}', 100000), ['a' => 1]);", "[Template is nested too deeply in {option]null"},
        {"loops", "page(str_repeat('{dynamic a}', 100000), ['a' => [1]]);", "[Template is nested too deeply in {dynami]null"},
        {"shallow", "page(str_repeat('{optional a}', 20) . 'x' . str_repeat('{/optional}', 20), ['a' => 1]);", "x"},
        {"path", "page('{' . str_repeat('a::', 99999) . \"a 'x'}\", ['a' => ['a' => 1]]);", "x"},
    };
    // clang-format on
    for (const auto& [name, code, prints] : deep) {
        expect(name, code, prints);
        for (const auto size : {smallStack, std::size_t{8} << 20})
            expect(name,
                   "ini_set('fiber.stack_size', " + std::to_string(size) + "); (new Fiber(function () { " + code +
                       " }))->start();",
                   prints);
    }
    expect("includes", "page('in://1000', [], false);", "0");
}

} // namespace
