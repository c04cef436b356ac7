<?php

declare(strict_types=1);

namespace Zorvel\Bench;

use RuntimeException;

/** What a child process does; it prints what it found as one line of JSON. */
final class Job
{
    public static function run(string $job, string ...$arguments): void
    {
        $result = match ($job) {
            'check' => self::check(...$arguments),
            'measure' => self::measure(...$arguments),
            'memory' => Memory::measure(...$arguments),
            'repeat' => self::repeat(...$arguments),
            default => throw new RuntimeException("There is no job $job."),
        };
        echo json_encode($result, JSON_THROW_ON_ERROR), "\n";
    }

    /** Compiles all templates on its way. */
    private static function check(string $pages, string $engines): string
    {
        $benchmark = new Benchmark(explode(',', $engines));
        array_map($benchmark->check(...), explode(',', $pages));

        return Setting::ofThisProcess();
    }

    private static function measure(string $page, string $engines, string $rounds, string $batch): Samples
    {
        $sampler = new Sampler((int) $rounds, (float) $batch);

        return $sampler->run(new Benchmark(explode(',', $engines))->cases($page));
    }

    private static function repeat(string $page, string $engines, string $times): int
    {
        new Benchmark(explode(',', $engines))->repeat($page, (int) $times);

        return (int) $times;
    }
}
