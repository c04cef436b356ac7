#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "embed.h"

namespace
{

/// Rows in the memory of the whole process, as opcache shares them: immutable, without a reference count.
HashTable* sharedRows()
{
    static HashTable rows;
    zend_hash_init(&rows, 8, nullptr, nullptr, true);
    for (zend_long row = 0; row < 3; ++row) {
        zval value;
        ZVAL_LONG(&value, row);
        zend_hash_next_index_insert_new(&rows, &value);
    }
    GC_ADD_FLAGS(&rows, GC_IMMUTABLE);
    return &rows;
}

const char writeFiles[] = R"php(
    @mkdir($folder = sys_get_temp_dir() . '/zorvel-threads');
    file_put_contents("$folder/main", '{dynamic n,rows}{htmlspecialchars n::*}{optional n::[*] 1}{include part}{/optional},{/dynamic}');
    file_put_contents("$folder/part", '{dynamic rows}<{*}>{/dynamic}{text}');
)php";

const char render[] = R"php(
    set_error_handler(function ($level, $message) { echo $message, ' '; });
    ini_set('include_path', sys_get_temp_dir() . '/zorvel-threads');
    echo zorvel('main', ['rows' => $rows, 'text' => []]), zorvel('{/dynamic}', [], true) ?? 'null';

    enum Level: string { case Low = 'l'; }
    final class Cycle
    {
        private $self;
        public function __construct(private array $rows) { $this->self = $this; }
        public function __toString(): string
        {
            new Cycle($this->rows);
            Fiber::suspend();
            return gc_collect_cycles() > 0 ? 'c' : '';
        }
    }
    $template = '{dynamic n,levels}{dynamic n::*}{[*]}={*} {/dynamic}{/dynamic}{dynamic rows}{*}{*::x cycle}{/dynamic}';
    $data = ['levels' => [['num' => Level::Low]], 'rows' => $rows, 'cycle' => new Cycle($rows)];
    $fiber = new Fiber(fn () => zorvel($template, $data, true));
    for ($fiber->start(); !$fiber->isTerminated(); $fiber->resume());
    echo $fiber->getReturn();
)php";

void serve(HashTable* rows, std::chrono::steady_clock::time_point end)
{
    const embed::RequestThread thread;
    do {
        const embed::Request request;
        zval value;
        ZVAL_ARR(&value, rows);
        Z_TYPE_FLAGS(value) = 0;
        zend_hash_str_update(&EG(symbol_table), ZEND_STRL("rows"), &value);
        EXPECT_EQ(embed::run(render), "Array to string conversion 0,1<0><1><2>Array,2,"
                                      "Unexpected closing dynamic tag in {/dynamic} nullname=Low value=l 0c1c2c");
    } while (std::chrono::steady_clock::now() < end);
}

TEST(Threads, ServeSharedDataFromTheSameFiles)
{
    const char* const seconds = std::getenv("ZORVEL_THREAD_SECONDS");
    const auto end =
        std::chrono::steady_clock::now() + std::chrono::seconds(seconds != nullptr ? std::atoi(seconds) : 1);
    embed::request(writeFiles);
    HashTable* const rows = sharedRows();
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i)
        threads.emplace_back(serve, rows, end);
    for (auto& thread : threads)
        thread.join();
}

} // namespace
