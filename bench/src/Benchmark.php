<?php

declare(strict_types=1);

namespace Zorvel\Bench;

use Closure;

/** Runs engines over pages. */
final readonly class Benchmark
{
    private const array GROWTH = [
        'rows' => ['catalogue-10000', 'catalogue-1000'],
        'values' => ['tags-10000', 'tags-1000'],
    ];

    /** @var array<string, Engine> */
    private array $engines;

    /** @param list<string> $engines what to measure */
    public function __construct(private Sampler $sampler, array $engines)
    {
        $this->engines = array_combine($engines, array_map(Engines::open(...), $engines));
    }

    /** Renders the page by every engine and demands that they agree. */
    public function check(string $name): void
    {
        $renderings = $this->renderings(Pages::get($name));
        Output::assertSame($name, array_map(static fn (Closure $render): string => $render(), $renderings));
    }

    public function measure(string $name): Samples
    {
        $page = Pages::get($name);

        return $this->sampler->run($this->renderings($page) + self::floor($page));
    }

    public function repeat(string $name, int $times): void
    {
        foreach ($this->renderings(Pages::get($name)) as $render) {
            for ($i = 0; $i < $times; $i++) {
                $render();
            }
        }
    }

    /** @return array<string, array<string, float>> by engine: the time for ten times the work over the time before */
    public function growth(): array
    {
        return array_map(
            fn (Engine $engine): array => array_map(fn (array $pages): float => $this->sampler->run([
                'large' => self::rendering($engine, Pages::get($pages[0])),
                'small' => self::rendering($engine, Pages::get($pages[1])),
            ])->ratio('large', 'small'), self::GROWTH),
            $this->enginesForFiles(),
        );
    }

    /** @return array<string, Memory> by engine */
    public function memory(): array
    {
        $engines = array_keys($this->enginesForFiles());

        return array_combine($engines, array_map(Memory::ofChild(...), $engines));
    }

    /** @return array<string, Closure(): string> by engine */
    private function renderings(Page $page): array
    {
        return array_map(
            static fn (Engine $engine): Closure => self::rendering($engine, $page),
            $page->template === 'small' ? $this->engines : $this->enginesForFiles(),
        );
    }

    private static function rendering(Engine $engine, Page $page): Closure
    {
        $template = $page->template;
        $data = $engine->prepare($page->data);

        return static fn (): string => $engine->render($template, $data);
    }

    /** @return array<string, Engine> */
    private function enginesForFiles(): array
    {
        return array_diff_key($this->engines, ['zorvel-string' => true]);
    }

    /** @return array<string, Closure> */
    private static function floor(Page $page): array
    {
        $folder = Templates::folder('zorvel');
        $names = [$page->template, ...$page->parts];
        $files = array_map(static fn (string $name): string => "$folder/$name.html", $names);
        $floor = ['file' => static fn () => self::read($files)];

        return $page->html === [] ? $floor : $floor + ['escape' => static fn () => self::escape($page)];
    }

    /** @param list<string> $files */
    private static function read(array $files): void
    {
        foreach ($files as $file) {
            file_get_contents($file);
        }
    }

    private static function escape(Page $page): void
    {
        foreach ($page->html as $text) {
            htmlspecialchars($text);
        }
        foreach ($page->url as $text) {
            rawurlencode($text);
        }
    }
}
