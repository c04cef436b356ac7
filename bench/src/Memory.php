<?php

declare(strict_types=1);

namespace Zorvel\Bench;

/** What one rendering of the catalogue of 100,000 rows adds to the memory of a process of its own, in bytes. */
final readonly class Memory
{
    public function __construct(public int $before, public int $peak, public int $output) {}

    public static function ofJson(string $json): self
    {
        /** @var array{before: int, peak: int, output: int} $memory */
        $memory = json_decode($json, true, flags: JSON_THROW_ON_ERROR);

        return new self(...$memory);
    }

    public function ratio(): float
    {
        return ($this->peak - $this->before) / $this->output;
    }

    /** Measures in this process, which is to have done nothing else. */
    public static function measure(string $id): self
    {
        $engine = Engines::open($id);
        $engine->render('catalogue', Pages::catalogue(10, 10)->data);
        $data = Pages::catalogue(100_000, 10)->data;

        gc_mem_caches();
        file_put_contents('/proc/self/clear_refs', '5'); // the peak is now the resident size
        $before = self::resident('VmRSS');
        $output = strlen($engine->render('catalogue', $data));

        return new self($before, self::resident('VmHWM'), $output);
    }

    private static function resident(string $field): int
    {
        preg_match("/^$field:\s+(\d+) kB/m", (string) file_get_contents('/proc/self/status'), $match);

        return 1024 * (int) ($match[1] ?? 0);
    }
}
