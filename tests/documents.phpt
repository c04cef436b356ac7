--TEST--
Every example of the documents gives what the documents say
--FILE--
<?php
/*
 * An example is a run of fenced blocks with no blank line between them: ```zorvel is a template given as text,
 * ```zorvel NAME.tpl a file, ```php the data or the call, ```text warning the warning, any other the result.
 * Or it is a row of a table with columns of these names (Template, NAME.tpl, Data, Result, Warning) that begins
 * with a template; an empty first cell repeats the one above.
 */
const LEAST = ['README.md' => 16, 'docs/language.md' => 97, 'docs/messages.md' => 26, 'docs/coming-from.md' => 11];

function examples(string $document): Generator
{
    preg_match_all('/^(?=```(?:zorvel|php))(?:```[\s\S]*?^```\n)+|^\| (?:Template|`\S+\.tpl`) \|.*\n(?:\|.*\n)+/m',
        $document, $pieces, PREG_OFFSET_CAPTURE);
    foreach ($pieces[0] as [$piece, $offset]) {
        $line = substr_count($document, "\n", 0, $offset) + 1;
        if (!str_contains($piece, 'Zorvel\\View')) { // which the tests of packages/view run
            yield from $piece[0] === '|' ? rows($piece, $line) : [$line => blocks($piece)];
        }
    }
}

function blocks(string $run): array
{
    preg_match_all('/^```(\w*) ?(\S*)\n([\s\S]*?)\n?^```$/m', $run, $blocks, PREG_SET_ORDER);
    $part = fn ($kind, $name) => ['zorvel' => $name ?: 'Template', 'php' => 'Data'][$kind] ?? ucfirst($name ?: 'result');
    return array_combine(array_map($part, array_column($blocks, 1), array_column($blocks, 2)), array_column($blocks, 3));
}

function rows(string $table, int $line): Generator
{
    $rows = array_map(fn ($row) => array_map(trim(...), explode('|', trim($row, '|'))), explode("\n", trim($table)));
    foreach (array_slice($rows, 2) as $i => $cells) {
        $cells = preg_replace('/^[^`]*`?|`?[^`]*$/', '', $cells);
        $above = $cells[0] = $cells[0] === '' ? $above : $cells[0];
        yield $line + 2 + $i => array_combine(str_replace('`', '', $rows[0]), $cells);
    }
}

function observed(array $files, string $php): array
{
    array_map(file_put_contents(...), array_keys($files), $files);
    error_clear_last();
    ob_start();
    $text = str_contains($php, 'zorvel(') ? @eval($php) : @zorvel(
        $files['Template'] ?? array_key_first($files), eval("return $php;"), isset($files['Template']));
    return [ob_get_clean() ?: $text, error_get_last()['message'] ?? null];
}

mkdir($folder = sys_get_temp_dir() . '/zorvel-documents-' . getmypid());
chdir($folder);
foreach (LEAST as $name => $least) {
    $examples = iterator_to_array(examples(file_get_contents(dirname(__DIR__) . "/$name")));
    count($examples) >= $least || print("$name: only " . count($examples) . " examples\n");
    foreach ($examples as $line => $parts) {
        $files = array_filter($parts, fn ($part) => preg_match('/^Template$|\.tpl$/', $part), ARRAY_FILTER_USE_KEY);
        $observed = observed($files, ($parts['Data'] ?? '') ?: '[]');
        $expected = [$parts['Result'] ?? null, ($parts['Warning'] ?? '') ?: null];
        $observed === $expected || print("$name:$line: " . json_encode(compact('observed', 'expected')) . "\n");
    }
}
array_map(unlink(...), glob("$folder/*"));
rmdir($folder);
?>
--EXPECT--
