<?php

declare(strict_types=1);

namespace Zorvel\Playground\Tests;

use PHPUnit\Framework\TestCase;
use Zorvel\Playground\Recipes;
use Zorvel\Playground\Sandbox;
use Zorvel\Tests\Recipe;

final class RecipesTest extends TestCase
{
    public function testEveryRecipeGivesThePageOfTheDocument(): void
    {
        $document = __DIR__ . '/../../../docs/recipes.md';
        $pages = [];
        foreach (new Recipes($document)->all() as $recipe) {
            $page = substr((string) array_key_first($recipe['files']), 0, -strlen('.tpl'));
            $made = new Sandbox()->render((string) json_encode($recipe))['page'] ?? null;
            $pages[strtok($recipe['name'], ':') . " $page"] = is_string($made) ? rtrim($made) : $made;
        }
        $expected = [];
        foreach (Recipe::all((string) file_get_contents($document)) as $name => $recipe) {
            foreach ($recipe->data() === null ? [] : $recipe->results() as $page => $text) {
                $expected["$name $page"] = rtrim($text);
            }
        }

        self::assertSame($expected, $pages);
    }
}
