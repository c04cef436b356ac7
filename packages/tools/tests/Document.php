<?php

declare(strict_types=1);

namespace Zorvel\Tools\Tests;

/** The examples of a document. */
final readonly class Document
{
    private string $text;

    public function __construct(string $name)
    {
        $this->text = (string) file_get_contents(__DIR__ . "/../../../$name");
    }

    /** @return iterable<array<string, string>> the rows of tables whose first column is a template; an empty first cell repeats the one above */
    public function rows(): iterable
    {
        preg_match_all('/^\| (?:Template|`page.tpl`) \|.*\n(?:\|.*\n)+/m', $this->text, $tables);
        foreach ($tables[0] as $table) {
            $rows = array_map(fn(string $row): array => array_map(trim(...), explode('|', trim($row, '|'))), explode("\n", trim($table)));
            $first = '';
            foreach (array_slice($rows, 2) as $cells) {
                $cells = preg_replace('/^[^`]*`?|`?[^`]*$/', '', $cells);
                $first = $cells[0] = $cells[0] === '' ? $first : $cells[0];
                yield array_combine(str_replace('`', '', $rows[0]), $cells);
            }
        }
    }

    /** @return array<string, array<string, string>> the fenced blocks by the words behind the fence, by heading */
    public function blocks(): array
    {
        preg_match_all('/^## (.+)\n((?:(?!#+ ).*\n)+)/m', $this->text, $sections);

        return array_combine($sections[1], array_map(function (string $section): array {
            preg_match_all('/^```(.*)\n([\s\S]*?)\n^```$/m', $section, $blocks);

            return array_combine($blocks[1], $blocks[2]);
        }, $sections[2]));
    }
}
