<?php

declare(strict_types=1);

namespace Zorvel\Bench;

use RuntimeException;

/** What one rendering of the catalogue of 100,000 rows adds to the memory of a process of its own. */
final readonly class Memory
{
    private function __construct(public int $before, public int $peak, public int $output)
    {
    }

    public function ratio(): float
    {
        return ($this->peak - $this->before) / $this->output;
    }

    /** Measures in a child process, which runs this program with the same settings. */
    public static function ofChild(string $engine): self
    {
        $arguments = explode("\0", file_get_contents('/proc/self/cmdline'));
        $php = array_slice($arguments, 0, array_search($_SERVER['argv'][0], $arguments, true) + 1);
        $output = shell_exec(implode(' ', array_map(escapeshellarg(...), [...$php, "--memory=$engine"])));

        return new self(...json_decode($output ?? '', true) ?? throw new RuntimeException("memory of $engine"));
    }

    /** Measures in this process and prints the result for the parent. */
    public static function print(string $id): void
    {
        $engine = Engines::open($id);
        $engine->render('catalogue', $engine->prepare(Pages::catalogue(10, 10)->data));
        $data = $engine->prepare(Pages::catalogue(100_000, 10)->data);

        gc_mem_caches();
        file_put_contents('/proc/self/clear_refs', '5'); // the peak is now the resident size
        $before = self::resident('VmRSS');
        $output = strlen($engine->render('catalogue', $data));

        echo json_encode([$before, self::resident('VmHWM'), $output]);
    }

    private static function resident(string $field): int
    {
        preg_match("/^$field:\s+(\d+) kB/m", file_get_contents('/proc/self/status'), $match);

        return 1024 * (int) $match[1];
    }
}
