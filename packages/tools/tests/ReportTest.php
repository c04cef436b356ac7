<?php

declare(strict_types=1);

namespace Zorvel\Tools\Tests;

use DOMDocument;
use DOMElement;
use PHPUnit\Framework\TestCase;
use Symfony\Component\Console\Output\BufferedOutput;
use Zorvel\Tools\Finding;
use Zorvel\Tools\Level;
use Zorvel\Tools\Report\Format;

final class ReportTest extends TestCase
{
    private const string MESSAGE = "100% <b> \"é\" \xE9 </b>\x01, it's";

    public function testText(): void
    {
        self::assertSame(
            "a,b.tpl:2:3: error: 100% <b> \"é\" \xE9 </b>\x01, it's [broken-tag]\nc.tpl:1:1: warning: x [glued-keyword]\n"
            . "1 error and 1 warning in 2 templates\n",
            $this->report(Format::Text),
        );
    }

    public function testTextInColours(): void
    {
        $output = new BufferedOutput(decorated: true);
        Format::Text->report()->write([new Finding('a', 1, 1, Level::Error, 'r', '<b>')], 1, $output);

        self::assertStringStartsWith("a:1:1: \e[31merror\e[39m: <b> [r]\n", $output->fetch());
    }

    public function testJson(): void
    {
        $expected = [
            ['file' => 'a,b.tpl', 'line' => 2, 'column' => 3, 'level' => 'error', 'rule' => 'broken-tag', 'message' => strtr(self::MESSAGE, ["\xE9 " => "\u{FFFD} "])],
            ['file' => 'c.tpl', 'line' => 1, 'column' => 1, 'level' => 'warning', 'rule' => 'glued-keyword', 'message' => 'x'],
        ];

        self::assertSame($expected, json_decode($this->report(Format::Json), true));
    }

    public function testGithub(): void
    {
        self::assertSame(
            "::error file=a%2Cb.tpl,line=2,col=3,title=broken-tag::100%25 <b> \"é\" \xE9 </b>\x01, it's\n"
            . "::warning file=c.tpl,line=1,col=1,title=glued-keyword::x\n",
            $this->report(Format::Github),
        );
    }

    public function testCheckstyle(): void
    {
        $document = new DOMDocument();
        self::assertTrue($document->loadXML($this->report(Format::Checkstyle)));
        $attributes = fn(DOMElement $error): array => [
            $error->parentElement?->getAttribute('name'), $error->getAttribute('line'), $error->getAttribute('column'),
            $error->getAttribute('severity'), $error->getAttribute('source'), $error->getAttribute('message'),
        ];

        self::assertSame([
            ['a,b.tpl', '2', '3', 'error', 'zorvel.broken-tag', strtr(self::MESSAGE, ["\xE9" => "\u{FFFD}", "\x01" => "\u{FFFD}"])],
            ['c.tpl', '1', '1', 'warning', 'zorvel.glued-keyword', 'x'],
        ], array_map($attributes, iterator_to_array($document->getElementsByTagName('error'))));
    }

    private function report(Format $format): string
    {
        $output = new BufferedOutput();
        $format->report()->write([
            new Finding('a,b.tpl', 2, 3, Level::Error, 'broken-tag', self::MESSAGE),
            new Finding('c.tpl', 1, 1, Level::Warning, 'glued-keyword', 'x'),
        ], 2, $output);

        return $output->fetch();
    }
}
