<?php

declare(strict_types=1);

namespace Zorvel\Bench;

use Closure;
use Zorvel\DataWalk;

/** Renders pages by engines. */
final readonly class Benchmark
{
    /** @param list<string> $engines */
    public function __construct(private array $engines) {}

    /** Renders the page by every engine and demands that they agree. */
    public function check(string $page): void
    {
        $renderings = $this->renderings($page, Pages::get($page));
        Output::assertSame($page, array_map(static fn(Closure $render): string => $render(), $renderings));
    }

    public function repeat(string $page, int $times): void
    {
        foreach ($this->renderings($page, Pages::get($page)) as $render) {
            for ($i = 0; $i < $times; $i++) {
                $render();
            }
        }
    }

    /** @return array<string, Closure(): mixed> what is to be measured for a page */
    public function cases(string $name): array
    {
        $page = Pages::get($name);

        return $this->renderings($name, $page) + self::floor($page);
    }

    /** @return array<string, Closure(): string> by engine */
    private function renderings(string $name, Page $page): array
    {
        $engines = array_values(array_diff($this->engines, array_diff(Engines::WAYS, Pages::ways($name))));

        return array_combine($engines, array_map(
            static fn(string $id): Closure => self::rendering(Engines::open($id), $page),
            $engines,
        ));
    }

    /** @return Closure(): string */
    private static function rendering(Engine $engine, Page $page): Closure
    {
        $template = $page->template;
        $data = $page->data;

        return static fn(): string => $engine->render($template, $data);
    }

    /** @return array<string, Closure(): mixed> */
    private static function floor(Page $page): array
    {
        $folder = Templates::folder('zorvel');
        $names = [$page->template, ...$page->parts];
        $files = array_map(static fn(string $name): string => "$folder/$name.html", $names);
        $floor = [
            'file' => static fn() => self::read($files),
            'data' => static fn() => new DataWalk($page->template)->plain($page->data),
        ];

        return $page->html === [] ? $floor : $floor + ['escape' => static fn() => self::escape($page)];
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
            $escaped = htmlspecialchars($text);
        }
        foreach ($page->url as $text) {
            $escaped = rawurlencode($text);
        }
    }
}
