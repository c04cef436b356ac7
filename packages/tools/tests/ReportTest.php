<?php

declare(strict_types=1);

namespace Zorvel\Tools\Tests;

use PHPUnit\Framework\Attributes\DataProvider;
use PHPUnit\Framework\TestCase;
use Symfony\Component\Console\Output\BufferedOutput;
use Zorvel\Tools\Finding;
use Zorvel\Tools\Level;
use Zorvel\Tools\Report\Format;

final class ReportTest extends TestCase
{
    private const string MESSAGE = "1% <b> \"é\" \xE9 </b>\x01, it's";

    /** @return iterable<string, array{Format, string}> */
    public static function reports(): iterable
    {
        yield 'text' => [Format::Text, "a,b.tpl:2:3: \e[31merror\e[39m: " . self::MESSAGE . " [broken-tag]\n"
            . "c.tpl:1:1: \e[33mwarning\e[39m: x [glued-keyword]\n1 error and 1 warning in 2 templates\n"];
        yield 'GitHub' => [Format::Github, "::error file=a%2Cb.tpl,line=2,col=3,title=broken-tag::1%25 <b> \"é\" \xE9 </b>\x01, it's\n"
            . "::warning file=c.tpl,line=1,col=1,title=glued-keyword::x\n"];
        yield 'JSON' => [Format::Json, <<<'JSON'
            [
                {
                    "file": "a,b.tpl",
                    "line": 2,
                    "column": 3,
                    "level": "error",
                    "rule": "broken-tag",
                    "message": "1% <b> \"é\" � </b>\u0001, it's"
                },
                {
                    "file": "c.tpl",
                    "line": 1,
                    "column": 1,
                    "level": "warning",
                    "rule": "glued-keyword",
                    "message": "x"
                }
            ]

            JSON];
        yield 'Checkstyle' => [Format::Checkstyle, <<<'XML'
            <?xml version="1.0" encoding="UTF-8"?>
            <checkstyle version="10.0">
              <file name="a,b.tpl">
                <error line="2" column="3" severity="error" message="1% &lt;b&gt; &quot;é&quot; � &lt;/b&gt;�, it&apos;s" source="zorvel.broken-tag"/>
              </file>
              <file name="c.tpl">
                <error line="1" column="1" severity="warning" message="x" source="zorvel.glued-keyword"/>
              </file>
            </checkstyle>

            XML];
    }

    #[DataProvider('reports')]
    public function testWritesFindingsDown(Format $format, string $expected): void
    {
        $output = new BufferedOutput(decorated: true);
        $format->report()->write([
            new Finding('a,b.tpl', 2, 3, Level::Error, 'broken-tag', self::MESSAGE),
            new Finding('c.tpl', 1, 1, Level::Warning, 'glued-keyword', 'x'),
        ], 2, $output);

        self::assertSame($expected, $output->fetch());
    }
}
