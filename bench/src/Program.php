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
            $this->options->check => $this->check(new Child(Jit::Off, $this->options->under)),
            $this->options->repeat !== null => $this->repeat($this->options->repeat),
            default => $this->measure(),
        };
    }

    private function check(Child $child): Setting
    {
        return Setting::ofJson($child->run('check', implode(',', $this->options->pages), $this->engines));
    }

    private function repeat(string $times): void
    {
        $child = new Child(Jit::Off, $this->options->under);
        foreach ($this->options->pages as $page) {
            $child->run('repeat', $page, $this->engines, $times);
        }
    }

    private function measure(): void
    {
        Report::head();
        $plain = $this->results(Jit::Off, $this->options->full);
        $jit = $this->results(Jit::On, false);
        Report::targets(new Targets($plain, $jit)->all());
        if ($this->options->full) {
            Chart::write(__DIR__ . '/../../docs/benchmark.svg', $plain);
        }
    }

    private function results(Jit $jit, bool $withMemory): Results
    {
        $child = new Child($jit, $this->options->under);
        Report::setting($this->check($child));
        $results = new Results($this->pages($child), $withMemory ? $this->memory($child) : []);
        Report::results($results);

        return $results;
    }

    /**
     * Runs stand outside, so that a change of the machine's pace meets all pages.
     *
     * @return array<string, Samples> by page
     */
    private function pages(Child $child): array
    {
        [$runs, $rounds, $batch] = $this->options->quick ? [1, '5', '0.01'] : [3, '7', '0.02'];
        $samples = array_fill_keys($this->options->pages, new Samples([]));
        for ($run = 1; $run <= $runs; $run++) {
            foreach ($samples as $page => $before) {
                Console::progress("run $run of $runs: $page");
                $json = $child->run('measure', $page, $this->engines, $rounds, $batch);
                $samples[$page] = $before->with(Samples::ofJson($json));
            }
        }

        return $samples;
    }

    /** @return array<string, Memory> by engine */
    private function memory(Child $child): array
    {
        $memory = [];
        foreach (array_diff($this->options->engines, ['zorvel-string']) as $engine) {
            Console::progress("memory: $engine");
            $memory[$engine] = Memory::ofJson($child->run('memory', $engine));
        }

        return $memory;
    }
}
