<?php

declare(strict_types=1);

namespace Zorvel\Playground;

use Generator;
use stdClass;
use Zorvel\DataWalk;

/** The examples of docs/recipes.md, whose first lines describe their form. */
final readonly class Recipes
{
    private const int WIDTH = 120;

    public function __construct(private string $document) {}

    /** @return list<array{name: string, files: array<string, string>, data: string}> the template of the page comes first */
    public function all(): array
    {
        $recipes = [];
        foreach (array_slice(preg_split('/^## /m', (string) file_get_contents($this->document)) ?: [], 1) as $section) {
            preg_match_all('/^```\w+ (\S+)\n([\s\S]*?)^```$/m', $section, $matches);
            $blocks = array_combine($matches[1], $matches[2]);
            if (isset($blocks['data'])) {
                array_push($recipes, ...self::pages((string) strtok($section, "\n"), $blocks));
            }
        }

        return $recipes;
    }

    /**
     * @param array<string, string> $blocks
     * @return list<array{name: string, files: array<string, string>, data: string}>
     */
    private static function pages(string $heading, array $blocks): array
    {
        $files = array_filter($blocks, static fn(string $name): bool => str_ends_with($name, '.tpl'), ARRAY_FILTER_USE_KEY);
        $pages = array_values(array_filter(array_keys($files), static fn(string $name): bool => isset($blocks[substr($name, 0, -4)])));
        $data = self::php(self::plain(self::result($blocks['data'])));

        return array_map(static fn(string $page): array => [
            'name' => count($pages) === 1 ? $heading : "$heading: " . substr($page, 0, -4),
            'files' => [$page => $files[$page]] + $files,
            'data' => $data,
        ], $pages);
    }

    /** The document is ours, and so is the program. It sees no variable but itself. */
    private static function result(string $program): mixed
    {
        return eval($program);
    }

    /** What the program returned, its objects as the view shows them. */
    private static function plain(mixed $value): mixed
    {
        return match (true) {
            is_array($value) => array_map(self::plain(...), $value),
            $value instanceof Generator => array_map(self::plain(...), iterator_to_array($value, false)),
            $value instanceof stdClass => array_map(self::plain(...), get_object_vars($value)),
            is_object($value) => new DataWalk('data')->plain([$value])[0],
            default => $value,
        };
    }

    /** As one writes it: an array that fits into a line stands in one. */
    private static function php(mixed $value, string $indent = ''): string
    {
        if (!is_array($value)) {
            return $value === null ? 'null' : var_export($value, true);
        }
        $elements = [];
        foreach ($value as $key => $element) {
            $elements[] = (array_is_list($value) ? '' : var_export($key, true) . ' => ') . self::php($element, "$indent    ");
        }
        $line = '[' . implode(', ', $elements) . ']';
        $isShort = strlen($indent . $line) <= self::WIDTH && !str_contains($line, "\n");

        return $isShort ? $line : "[\n$indent    " . implode(",\n$indent    ", $elements) . ",\n$indent]";
    }
}
