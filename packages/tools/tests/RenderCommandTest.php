<?php

declare(strict_types=1);

namespace Zorvel\Tools\Tests;

use PHPUnit\Framework\Attributes\DataProvider;

final class RenderCommandTest extends ToolsTestCase
{
    /** @return iterable<string, array{string, int, string, string}> */
    public static function calls(): iterable
    {
        yield 'a file' => ['t/page.tpl', 0, "<{x}>{n}\xFF\n(part)", ''];
        yield 'data' => ['t/page.tpl --data data.json', 0, "<<b>>1\xFF\n(part)", ''];
        yield 'data from standard input' => ['t/page.tpl --data -', 0, "<input>{n}\xFF\n(part)", ''];
        yield 'folders' => ['--folder t/in --folder t page.tpl --data=-', 0, "<input>{n}\xFF\n(in)", ''];
        yield 'a fault in an included file' => ['t/bad.tpl', 1, '', "part/bad.tpl:2: Bad formated parameter'a::': too many :\n2 | é 日  {a::} b\n          ^^^^^\n"];
        yield 'a fault over several lines' => ['t/lines.tpl', 1, '', "lines.tpl:2: Variable block bad parameter 'a\nb'c': ' is forbidden in variable\n2 | {a\n    ^^\n"];
        yield 'a fault in a long line' => ['t/long.tpl', 1, '', "long.tpl:1: Missing closing tag\n1 | " . str_repeat('é', 60) . '{optional x}' . str_repeat('z', 48)
            . "\n" . str_repeat(' ', 64) . "^^^^^^^^^^^^\n"];
        yield 'strict' => ['t/page.tpl --strict', 1, '', "page.tpl:1: x names nothing, and there is no default\n1 | <{x}>{n}?\n     ^^^\n"];
        yield 'a warning of PHP' => ['t/list.tpl --data data.json', 0, 'Array', "PHP's own"];
        yield 'a folder' => ['t', 2, '', "zorvel: there is no template t in .\n"];
        yield 'no such template' => ['--folder t none.tpl', 2, '', "zorvel: there is no template none.tpl in t\n"];
        yield 'no such folder' => ['--folder none page.tpl', 2, '', "zorvel: no such folder: none\n"];
        yield 'text for data' => ['t/page.tpl --data text.json', 2, '', "zorvel: text.json holds no JSON object\n"];
        yield 'no value' => ['t/page.tpl --data', 2, '', "zorvel: The \"--data\" option requires a value.\n"];
    }

    #[DataProvider('calls')]
    public function testWritesThePageOrShowsTheFault(string $words, int $status, string $output, string $errors): void
    {
        $this->write([
            't/page.tpl' => "<{x}>{n}\xFF\n{include part.tpl}",
            't/part.tpl' => '(part)',
            't/in/part.tpl' => '(in)',
            't/bad.tpl' => '{include part/bad.tpl}',
            't/part/bad.tpl' => "\né 日\t\e{a::} b\r\n",
            't/lines.tpl' => "\n{a\nb'c}",
            't/long.tpl' => str_repeat('é', 99) . '{optional x}' . str_repeat('z', 99),
            't/list.tpl' => '{l}',
            'data.json' => "\u{FEFF}{\"x\": \"<b>\", \"n\": 1, \"l\": [1]}",
            'text.json' => '"x"',
        ]);
        [$actualStatus, $actualOutput, $actualErrors] = $this->zorvel(['render', ...explode(' ', $words)], '{"x": "input"}');

        self::assertSame([$status, $output], [$actualStatus, $actualOutput]);
        $errors === "PHP's own" ? self::assertStringContainsString('Array to string', $actualErrors) : self::assertSame($errors, $actualErrors);
    }
}
