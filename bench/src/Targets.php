<?php

declare(strict_types=1);

namespace Zorvel\Bench;

/** All that zorvel is to reach. */
final readonly class Targets
{
    /**
     * @param Results $plain without JIT
     * @param Results $jit with it
     * @param Results $trimmed without, in a process that has freed nothing large
     */
    public function __construct(private Results $plain, private Results $jit, private Results $trimmed) {}

    /** @return list<Target> */
    public function all(): array
    {
        return [...$this->longPages(), ...$this->shortPages(), ...$this->texts(), ...$this->growth()];
    }

    /** @return list<Target> */
    private function longPages(): array
    {
        return [
            $this->toPhp('catalogue-1000-escaped', 'zorvel', 0.6, 0.5),
            $this->toPhp('catalogue-1000', 'zorvel', 0.5, 0.4),
            self::toPhpIn($this->jit, 'with JIT', 'catalogue-1000-escaped', 0.7),
            self::toPhpIn($this->jit, 'with JIT', 'catalogue-1000', 0.6),
            self::toPhpIn($this->trimmed, 'heap trimmed', 'catalogue-500-escaped', 0.6, 0.5),
            self::toPhpIn($this->trimmed, 'heap trimmed', 'catalogue-500', 0.5, 0.4),
            $this->toFastest('catalogue-1000-escaped', 'zorvel', 'template language', Engines::LANGUAGES, 0.45, 0.3),
            $this->toFastest('catalogue-1000', 'zorvel', 'template language', Engines::LANGUAGES, 0.45, 0.3),
            new Target(
                "view's data for 1,000 rows",
                'rendering them, all escaped',
                $this->plain->ratio('catalogue-1000-escaped', 'data', 'zorvel'),
                1.0,
            ),
        ];
    }

    /** @return list<Target> */
    private function shortPages(): array
    {
        return [
            $this->toPhp('catalogue-3', 'zorvel-string', 1.8, 1.4),
            ...array_merge(...array_map($this->bundled(...), ['zorvel-bundle', 'zorvel-view'])),
        ];
    }

    /** @return list<Target> */
    private function bundled(string $way): array
    {
        return [
            $this->toPhp('small', $way, 2.0),
            $this->toPhp('includes', $way, 5.0),
            $this->toFastest('small', $way, 'other engine', Engines::OTHERS, 0.8, 0.6),
            $this->toFastest('includes', $way, 'other engine', Engines::OTHERS, 0.8),
        ];
    }

    /** @return list<Target> */
    private function texts(): array
    {
        $sum = fn(string $page): Target => new Target(
            Pages::title($page),
            'given as text, and reading the file',
            $this->plain->ratio($page, 'zorvel', 'zorvel-string', 'file'),
            1.05,
        );

        return [
            $sum('small'),
            $sum('catalogue-3'),
            $this->toReading('small', 2.0, 1.6),
            $this->toReading('text-50k', 4.0, 2.5),
            $this->toReading('text-200k', 10.0, 5.0),
            new Target(Pages::title('text-200k-string'), 'the same in a file', $this->plain->textToFile(), 2.0),
        ];
    }

    /** @return list<Target> */
    private function growth(): array
    {
        $memory = ($this->plain->memory['zorvel'] ?? null)?->ratio();

        return [
            new Target('10,000 rows', '1,000 rows', $this->plain->growth('catalogue', 'zorvel'), 11.0, 10.0),
            new Target('10,000 values', '1,000 values', $this->plain->growth('tags', 'zorvel'), 11.0, 10.0),
            new Target('peak memory for 100,000 rows', 'size of the output', $memory, 2.2, 1.5),
        ];
    }

    private function toPhp(string $page, string $way, float $atMost, ?float $aim = null): Target
    {
        return new Target(self::work($page, $way), 'PHP', $this->plain->ratio($page, $way, 'php'), $atMost, $aim);
    }

    private static function toPhpIn(Results $run, string $how, string $page, float $atMost, ?float $aim = null): Target
    {
        return new Target(Pages::title($page), "PHP, $how", $run->ratio($page, 'zorvel', 'php'), $atMost, $aim);
    }

    /** @param list<string> $engines */
    private function toFastest(string $page, string $way, string $kind, array $engines, float $atMost, ?float $aim = null): Target
    {
        $fastest = ($this->plain->pages[$page] ?? null)?->fastest($engines);
        $against = "fastest $kind" . ($fastest === null ? '' : ' (' . Engines::label($fastest) . ')');
        $ratio = $fastest === null ? null : $this->plain->ratio($page, $way, $fastest);

        return new Target(self::work($page, $way), $against, $ratio, $atMost, $aim);
    }

    private static function work(string $page, string $way): string
    {
        return Pages::title($page) . ($way === 'zorvel' ? '' : ', ' . Engines::label($way));
    }

    private function toReading(string $page, float $atMost, float $aim): Target
    {
        $ratio = $this->plain->ratio($page, 'zorvel', 'file');

        return new Target(Pages::title($page), 'reading the file', $ratio, $atMost, $aim);
    }
}
