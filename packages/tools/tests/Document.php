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

    /**
     * The rows of the tables whose first column is a template; an empty first cell repeats the one above.
     *
     * @return iterable<int, array<string, string>> the code of the cells by the name of their columns, by line
     */
    public function rows(): iterable
    {
        preg_match_all('/^\| (?:Template|`page.tpl`) \|.*\n(?:\|.*\n)+/m', $this->text, $tables, PREG_OFFSET_CAPTURE);
        foreach ($tables[0] as [$table, $offset]) {
            $line = substr_count($this->text, "\n", 0, $offset) + 1;
            $rows = array_map($this->cells(...), explode("\n", trim($table)));
            $first = '';
            foreach (array_slice($rows, 2) as $i => $cells) {
                $cells = preg_replace('/^[^`]*`?|`?[^`]*$/', '', $cells);
                $first = $cells[0] = $cells[0] === '' ? $first : $cells[0];
                yield $line + 2 + $i => array_combine(str_replace('`', '', $rows[0]), $cells);
            }
        }
    }

    /** @return array<string, array<string, string>> the fenced blocks by the words behind the fence, by heading */
    public function blocks(): array
    {
        $sections = [];
        foreach (array_slice(preg_split('/^## /m', $this->text) ?: [], 1) as $section) {
            preg_match_all('/^```(.*)\n([\s\S]*?)\n^```$/m', $section, $blocks);
            $sections[(string) strtok($section, "\n")] = array_combine($blocks[1], $blocks[2]);
        }

        return $sections;
    }

    /** @return list<string> */
    private function cells(string $row): array
    {
        return array_map(trim(...), preg_split('/(?<!\\\\)\|/', trim($row, '|')) ?: []);
    }
}
