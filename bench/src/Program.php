<?php

declare(strict_types=1);

namespace Zorvel\Bench;

/** What script/bench starts: sends jobs to child processes and reports what they found. */
final readonly class Program
{
    private string $engines;

    public function __construct(private Options $options)
    {
        $this->engines = implode(',', $options->engines);
    }

    public function run(): void
    {
        Templates::prepare(Engines::installed());
        match (true) {
            $this->options->check => $this->check(Variant::Plain),
            $this->options->repeat !== null => $this->repeat($this->options->repeat),
            default => $this->measure(),
        };
    }

    /** @return string the setting that the engines agree in */
    private function check(Variant $variant): string
    {
        $pages = implode(',', $variant->pages($this->options->pages));
        /** @var string $setting */
        $setting = json_decode($this->child($variant)->run('check', $pages, $this->engines));

        return $setting;
    }

    private function child(Variant $variant): Child
    {
        return new Child($variant, $this->options->under);
    }

    private function repeat(string $times): void
    {
        foreach ($this->options->pages as $page) {
            $this->child(Variant::Plain)->run('repeat', $page, $this->engines, $times);
        }
    }

    private function measure(): void
    {
        Report::head();
        $plain = $this->results(Variant::Plain);
        $jit = $this->results(Variant::Jit);
        $trimmed = $this->results(Variant::Trimmed);
        Report::targets(new Targets($plain, $jit, $trimmed)->all());
        if ($this->options->full) {
            Chart::write(__DIR__ . '/../../docs/benchmark.svg', $plain);
        }
    }

    private function results(Variant $variant): Results
    {
        if ($variant->pages($this->options->pages) === []) {
            return new Results([], []);
        }
        Report::setting($this->check($variant));
        $withMemory = $this->options->full && $variant === Variant::Plain;
        $results = new Results($this->pages($variant), $withMemory ? $this->memory($variant) : []);
        Report::results($results);

        return $results;
    }

    /**
     * Runs stand outside, so that a change of the machine's pace meets all pages.
     *
     * @return array<string, Samples> by page
     */
    private function pages(Variant $variant): array
    {
        [$runs, $rounds, $batch] = $this->options->quick ? [1, '5', '0.01'] : [3, '7', '0.02'];
        $samples = array_fill_keys($variant->pages($this->options->pages), new Samples([]));
        for ($run = 1; $run <= $runs; $run++) {
            foreach ($samples as $page => $before) {
                Console::progress("run $run of $runs: $page");
                $json = $this->child($variant)->run('measure', $page, $this->engines, $rounds, $batch);
                $samples[$page] = $before->with(Samples::ofJson($json));
            }
        }

        return $samples;
    }

    /** @return array<string, Memory> by engine */
    private function memory(Variant $variant): array
    {
        $memory = [];
        foreach (array_diff($this->options->engines, ['zorvel-string', 'zorvel-bundle', 'zorvel-view']) as $engine) {
            Console::progress("memory: $engine");
            $memory[$engine] = Memory::ofJson($this->child($variant)->run('memory', $engine));
        }

        return $memory;
    }
}
