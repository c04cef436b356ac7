<?php

declare(strict_types=1);

namespace Zorvel\Tests;

use Generator;
use PHPUnit\Framework\Attributes\DataProvider;
use Zorvel\View;

/** The rows of the tables in docs/language.md, which tests/documents.phpt gives to the bare function. */
final class LanguageTest extends TemplatesTestCase
{
    /** @return Generator<string, array{array<string, string>}> cells by column */
    public static function rows(): Generator
    {
        [$columns, $above] = [[], ''];
        foreach (file(__DIR__ . '/../../../docs/language.md') ?: [] as $number => $line) {
            $cells = array_map(trim(...), explode('|', trim($line, "|\n")));
            if ($columns !== [] && str_starts_with($line, '| ') && count($columns) === count($cells)) {
                $above = $cells[0] === '' ? $above : $cells[0];
                yield 'line ' . $number + 1 => [array_combine($columns, [$above, ...array_slice($cells, 1)])];
            }
            $columns = match (true) {
                $cells[0] === 'Template' => str_replace('`', '', $cells),
                str_starts_with($line, '|') => $columns,
                default => [],
            };
        }
    }

    /** @param array<string, string> $row */
    #[DataProvider('rows')]
    public function testOnlyWhatIsMarkedDiffersWithTheView(array $row): void
    {
        $files = array_map(self::code(...), array_filter(['page.tpl' => $row['Template'], 'part.tpl' => $row['part.tpl'] ?? '']));
        $page = new View($this->folder($files))->render('page.tpl', self::data(self::code($row['Data'])));
        $mark = $row[''] ?? '';

        if (preg_match('/with the view[^`]*`(.*?)`/', $mark, $told) === 1) {
            self::assertSame($told[1], $page);
        } elseif (str_contains($mark, '*bare:*')) {
            self::assertNotSame(self::code($row['Result']), $page);
        } else {
            self::assertSame(self::code($row['Result']), $page);
        }
    }

    private static function code(string $cell): string
    {
        return preg_match('/`(.*)`/', $cell, $match) === 1 ? $match[1] : '';
    }

    /** @return array<array-key, mixed> */
    private static function data(string $php): array
    {
        return $php === '' ? [] : (array) eval("return $php;");
    }
}
