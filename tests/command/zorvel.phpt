--TEST--
bin/zorvel: what render and lint write, and their exit statuses
--FILE--
<?php
$folder = sys_get_temp_dir() . '/zorvel-command-' . getmypid();
mkdir("$folder/parts", recursive: true);
chdir($folder);
$files = [
    'data.json' => '{"name": "Ann"}', 'cut.json' => '{"name":', 'text.json' => '"Ann"', 'note.txt' => '{/optional}',
    'good.tpl' => "Dear {name 'reader'}, {include parts/end.tpl}", 'parts/end.tpl' => "yours {name}",
    'close.tpl' => "{optional a}{/optional}\n{name\n'x'}\n{/dynamic}\n",
    'includes.tpl' => "{name}\n{include parts/path.html}", 'parts/path.html' => "{x}\n{c::}{/optional}",
    'loops.tpl' => "{dynamic a,x::y}\n{dynamic a,z}{/dynamic}{/dynamic}",
    'open.tpl' => "{optional a}\n{/optional}\n{optional b}\n{dynamic c}\n{/dynamic}\n",
    'quote.tpl' => "{name 'a\nb'}\n\n{name 'a}",
    'parts/itself.tpl' => "\n\n{include ./parts/itself.tpl}",
];
array_map(file_put_contents(...), array_keys($files), $files);

$php = PHP_BINARY . ' -n -d extension_dir=' . ini_get('extension_dir');
$zorvel = realpath(__DIR__ . '/../../bin/zorvel');
foreach ([
    'render good.tpl --data data.json', 'render --string "{name}"', 'render open.tpl',
    'render good.tpl --data none.json', 'render good.tpl --data cut.json', 'render good.tpl --data text.json',
    'render good.tpl --data', 'render', 'render --nope good.tpl', 'rendre',
    'lint good.tpl', 'lint .', 'lint note.txt', 'lint none.tpl', 'lint',
] as $words) {
    exec("$php -d extension=php_zorvel $zorvel $words 2>&1", $lines, $status);
    echo rtrim("$words ($status) " . implode("\n  ", $lines)), "\n";
    $lines = [];
}
exec("$php $zorvel lint . 2>&1", $lines, $status);
echo strstr($lines[0], ';', true), " ($status)\n";
exec("$php $zorvel --help", $help, $status);
echo count($help) <= 24 && max(array_map(strlen(...), $help)) <= 80 ? 'help fits' : 'too large', " ($status)\n";
array_map(unlink(...), array_keys($files));
array_map(rmdir(...), ['parts', $folder]);
?>
--EXPECT--
render good.tpl --data data.json (0) Dear Ann, yours Ann
render --string "{name}" (0) {name}
render open.tpl (1) zorvel: Missing closing tag in open.tpl
render good.tpl --data none.json (2) zorvel: cannot read none.json
render good.tpl --data cut.json (2) zorvel: cut.json is not valid JSON: Syntax error
render good.tpl --data text.json (2) zorvel: text.json holds no JSON object
render good.tpl --data (2) zorvel: --data needs a value
render (2) zorvel: render takes one template; see zorvel --help
render --nope good.tpl (2) zorvel: unknown option --nope; see zorvel --help
rendre (2) zorvel: expected render or lint; see zorvel --help
lint good.tpl (0)
lint . (1) close.tpl:4: Unexpected closing dynamic tag
  parts/path.html:2: Bad formated parameter'c::': too many :
  loops.tpl:2: Dynamic block bad parameter 'z': namespace is used already
  open.tpl:3: Missing closing tag
  ./parts/itself.tpl:3: Include block bad parameter './parts/itself.tpl': circle is detected
  quote.tpl:4: Variable block bad parameter 'name 'a': could not find second ' as the last character
lint note.txt (1) note.txt:1: Unexpected closing optional tag
lint none.tpl (2) zorvel: no such file or folder: none.tpl
lint (2) zorvel: lint found no template; see zorvel --help
zorvel: the extension is not loaded (2)
help fits (0)
