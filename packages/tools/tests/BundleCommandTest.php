<?php

declare(strict_types=1);

namespace Zorvel\Tools\Tests;

use PHPUnit\Framework\Attributes\DataProvider;

final class BundleCommandTest extends ToolsTestCase
{
    private const array FILES = ['t/page.tpl' => "<{include in/part.tpl}>\n{include in/../x}", 't/in/part.tpl' => "it's {include p::q}\r\n", 't/x' => '{x',
        't/url.tpl' => '{include none.tpl}{include data:text/plain,{optional x}'];

    /** @return iterable<string, array{string, int, string, string}> */
    public static function calls(): iterable
    {
        $stay = "in/part.tpl:1: {include p::q} stays\npage.tpl:2: {include in/../x} stays\nurl.tpl:1: {include none.tpl} stays\nurl.tpl:1: {include data:text/plain,{optional x} stays\n";
        yield 'written' => ['t -o new.php', 0, "{$stay}new.php is written.\n", ''];
        yield 'several folders, another extension' => ['u t --ext txt', 0, "bundle.php is written.\n", ''];
        yield 'up to date' => ['t/ -o old.php --check', 0, "old.php is up to date.\n", ''];
        yield 'stale' => ['u t -o old.php --check', 1, "old.php is not what the templates give: make it again.\n", ''];
        yield 'not there' => ['t -o new.php --check', 1, "new.php is not what the templates give: make it again.\n", ''];
        yield 'an error' => ['bad -o old.php', 1, "bad/a.tpl:1:4: error: Missing closing tag; {/optional} has to follow, in the same file [unclosed-section]\n"
            . "bad/b.tpl:3:1: error: Include block bad parameter 'b.tpl': circle is detected [broken-page]\n2 errors and 0 warnings in 2 templates\n", ''];
        yield 'no folder' => ['t none', 2, '', "zorvel: no such folder: none\n"];
        yield 'no template' => ['t --ext css', 2, '', "zorvel: bundle found no template; see zorvel bundle --help\n"];
        yield 'nowhere to write' => ['t -o none/new.php', 2, '', "zorvel: cannot write none/new.php\n"];
    }

    #[DataProvider('calls')]
    public function testWritesTheFileOrTellsWhyNot(string $words, int $status, string $output, string $errors): void
    {
        $this->write(self::FILES + ['u/a.txt' => '', 'u/page.tpl' => '', 'bad/a.tpl' => '{x}{optional x}', 'bad/b.tpl' => "{x\n}\n{include b.tpl}"]);
        $this->zorvel(['bundle', 't', '-o', 'old.php']);
        $old = (string) file_get_contents('old.php');

        self::assertSame([$status, $output, $errors], $this->zorvel(['bundle', ...explode(' ', $words)]));
        self::assertStringEqualsFile('old.php', $old);
        self::assertSame($status === 0 && !str_contains($words, '--check'), is_file('new.php') || is_file('bundle.php'));
    }

    public function testWritesTextsAndWhereTheyComeFrom(): void
    {
        $this->write(self::FILES);
        $this->zorvel(['bundle', 't']);
        $page = ['text' => "<it's {include p::q}\r\n>\n{include in/../x}", 'pieces' => [[0, 'page.tpl', 0, 1], [1, 'in/part.tpl', 0, 1], [22, 'page.tpl', 22, 1]]];
        /** @var array<string, mixed> $bundle */
        $bundle = require "$this->folder/bundle.php";

        self::assertSame(['in/part.tpl', 'page.tpl', 'url.tpl'], array_keys($bundle));
        self::assertSame($page + ['spliced' => ['in/part.tpl' => true], 'includes' => true], $bundle['page.tpl']);
        self::assertStringNotContainsString($this->folder, (string) file_get_contents('bundle.php'));
    }
}
