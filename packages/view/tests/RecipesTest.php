<?php

declare(strict_types=1);

namespace Zorvel\Tests;

use DOMDocument;
use PHPUnit\Framework\Attributes\DataProvider;
use Zorvel\View;

final class RecipesTest extends TemplatesTestCase
{
    private const string ROOT = __DIR__ . '/../../..';

    /** As a web server sends it: the status is a header. */
    private const string RUN = <<<'PHP'
        ob_start(fn(string $page): string => (http_response_code() ? 'Status: ' . http_response_code() . "\n\n" : '') . $page);
        require 'program.php';
        PHP;

    /** @return array<string, array{Recipe}> */
    public static function recipes(): array
    {
        return array_map(static fn(Recipe $recipe): array => [$recipe], Recipe::all((string) file_get_contents(self::ROOT . '/docs/recipes.md')));
    }

    public function testOnlyThoseThatShowASettingHaveNothingToRun(): void
    {
        preg_match_all('/^## (.+)$/m', (string) file_get_contents(self::ROOT . '/docs/recipes.md'), $headings);

        self::assertSame(['Slim', 'Laravel', 'Templates that you do not trust'], array_values(array_diff($headings[1], array_keys(self::recipes()))));
    }

    #[DataProvider('recipes')]
    public function testARecipeGivesWhatTheDocumentSays(Recipe $recipe): void
    {
        $folder = $this->folder($recipe->templates());
        $results = $recipe->program() === null ? self::pages($recipe, $folder) : ['output' => self::printed($recipe->program(), $recipe->command(), dirname($folder))];

        self::assertNotSame([], $results);
        self::assertSame(array_map(rtrim(...), $recipe->results()), array_map(rtrim(...), $results));
    }

    /** @return array<string, string> */
    private static function pages(Recipe $recipe, string $folder): array
    {
        $pages = [];
        foreach (array_keys($recipe->results()) as $name) {
            $pages[$name] = new View($folder, strict: true)->render("$name.tpl", self::evaluated((string) $recipe->data()));
            !str_ends_with($name, '.xml') || self::assertTrue(new DOMDocument()->loadXML($pages[$name]));
        }

        return $pages;
    }

    /** @return array<array-key, mixed> */
    private static function evaluated(string $program): array
    {
        return (array) eval($program);
    }

    private static function printed(string $program, string $command, string $folder): string
    {
        symlink(self::ROOT . '/packages/vendor', "$folder/vendor");
        file_put_contents("$folder/program.php", "<?php\n$program");
        $php = escapeshellarg((string) realpath(self::ROOT . '/script/php'));

        shell_exec("cd $folder\n" . strtr($command, ['vendor/' => "$php vendor/"]));

        return (string) shell_exec("cd $folder && $php -r " . escapeshellarg(self::RUN) . ' 2>/dev/null');
    }
}
