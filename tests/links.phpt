--TEST--
Every link of the documents leads to a file, and to a heading in it
--FILE--
<?php
function prose(string $file): string
{
    return preg_replace('/^```[\s\S]*?^```$|`[^`\n]*`/m', '', file_get_contents($file));
}

function headings(string $file): array
{
    preg_match_all('/^#+ (.+)$/m', preg_replace('/^```[\s\S]*?^```$/m', '', file_get_contents($file)), $titles);
    return preg_replace(['/[^\w\- ]/u', '/ /'], ['', '-'], array_map(mb_strtolower(...), $titles[1]));
}

$count = 0;
chdir(dirname(__DIR__));
foreach (glob('{,*/,*/*/,*/*/*/}*.md', GLOB_BRACE) as $document) {
    if (preg_match('~(vendor|node_modules|build)/~', $document)) {
        continue;
    }
    preg_match_all('/\]\((?!\w+:)([^)#\s]*)#?([^)\s]*)\)/', prose($document), $links, PREG_SET_ORDER);
    foreach ($links as [, $name, $heading]) {
        $file = $name === '' ? $document : dirname($document) . "/$name";
        $leads = file_exists($file) && ($heading === '' || in_array($heading, headings($file), true));
        $leads || print("$document: $name#$heading\n");
        ++$count;
    }
}
echo $count > 80 ? 'many' : $count, " links\n";
?>
--EXPECT--
many links
