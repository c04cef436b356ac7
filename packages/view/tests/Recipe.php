<?php

declare(strict_types=1);

namespace Zorvel\Tests;

/** An example of docs/recipes.md, whose first lines describe the form. */
final readonly class Recipe
{
    /** @param array<string, string> $blocks what the fences hold, by the second word behind them */
    private function __construct(private array $blocks) {}

    /** @return array<string, self> by heading, those with something to run */
    public static function all(string $document): array
    {
        $recipes = [];
        foreach (array_slice(preg_split('/^## /m', $document) ?: [], 1) as $section) {
            preg_match_all('/^```\w+ (\S+)\n([\s\S]*?)^```$/m', $section, $blocks);
            $recipes[(string) strtok($section, "\n")] = new self(array_combine($blocks[1], $blocks[2]));
        }

        return array_filter($recipes, static fn(self $recipe): bool => $recipe->blocks !== []);
    }

    /** @return array<string, string> text by name */
    public function templates(): array
    {
        return array_filter($this->blocks, static fn(string $name): bool => str_ends_with($name, '.tpl'), ARRAY_FILTER_USE_KEY);
    }

    public function data(): ?string
    {
        return $this->blocks['data'] ?? null;
    }

    public function program(): ?string
    {
        return $this->blocks['program'] ?? null;
    }

    /** What is to be run before the program. */
    public function command(): string
    {
        return $this->blocks['command'] ?? '';
    }

    /** @return array<string, string> what comes of it: pages by name, or the output */
    public function results(): array
    {
        return array_diff_key($this->blocks, $this->templates(), ['data' => '', 'program' => '', 'command' => '']);
    }
}
