<?php

declare(strict_types=1);

namespace Zorvel\Tools\Tests;

use Closure;
use InvalidArgumentException;
use PHPUnit\Framework\Attributes\DataProvider;
use Random\Engine\Xoshiro256StarStar;
use Random\Randomizer;
use Zorvel\Bench\Pages;
use Zorvel\TemplateError;
use Zorvel\Tools\Bundle\BundledText;
use Zorvel\Tools\Bundle\Bundler;
use Zorvel\View;

/** A page from a bundle is the page from the folders, and so is the error in its place. */
final class BundleTest extends ToolsTestCase
{
    private const array DATA = ['x' => 'X', 'l' => ['1', '2'], 'm' => ['3'], 'p' => ['a' => 'a.tpl', 'page' => 'page.tpl']];

    /** What random templates consist of. */
    private const array BITS = ['{', '{', '}', '}', '{{', '}}', ' ', "\n", "\0", 'a', '{x}', '{x}', "{y 'z'}", '{r::*}', '{bad::}', '{x', '{include p::a}',
        '{include p::page}', '{include ./b.tpl}', '{include none.tpl}'];
    private const array SECTIONS = [['{optional x}', '{/optional}'], ['{dynamic r,l}', '{/dynamic}'], ['{rdynamic s,m}', '{/rdynamic}'],
        ['{dynamic r,m}', '{/dynamic}'], ['{optional y}', ''], ['', '{/optional}']];

    /** @return iterable<string, array{array<string, string>, 1?: list<string>,}> files, the includes of the page that stay */
    public static function seams(): iterable
    {
        yield 'in place' => [['page' => "<{include a.tpl}>\n{include a.tpl}{include b.tpl}", 'a' => '({include b.tpl})', 'b' => '{dynamic r,l}{r::*}{/dynamic}']];
        yield 'in a loop' => [['page' => '{dynamic r,l}{include a.tpl}{/dynamic}', 'a' => '{r::*}{dynamic s,l}{s::*}{/dynamic}']];
        yield 'a path of the data, no file, no plain name' => [
            ['page' => '{include p::a}{include none.tpl}{include ./a.tpl}{include ../f/a.tpl}{include f/../a.tpl}{include a.tpl/}', 'a' => 'A'],
            ['p::a', 'none.tpl', './a.tpl', '../f/a.tpl', 'f/../a.tpl', 'a.tpl/']];
        yield 'closes' => [['page' => "\n{optional x}{include a.tpl}", 'a' => '{/optional}'], ['a.tpl']];
        yield 'leaves open' => [['page' => '{include a.tpl}{/optional}', 'a' => "\n{optional x}"], ['a.tpl']];
        yield 'crossed' => [['page' => '{include a.tpl}', 'a' => '{dynamic l}{optional x}{/dynamic}{/optional}'], ['a.tpl']];
        yield 'ends in a tag' => [['page' => '{include a.tpl}}', 'a' => '{x'], ['a.tpl']];
        yield 'the page ends in a tag' => [['page' => '{include a.tpl', 'a' => '{x}']];
        yield "a loop's name" => [['page' => '{dynamic r,l}{include a.tpl}{/dynamic}{include a.tpl}', 'a' => '{dynamic r,m}{r::*}{/dynamic}'], ['a.tpl']];
        yield "a loop's name in the chain" => [['page' => '{dynamic r,l}{include a.tpl}{/dynamic}', 'a' => '<{include b.tpl}>', 'b' => '{dynamic r,m}{r::*}{/dynamic}'], ['b.tpl']];
        yield "a loop's name round the next" => [['page' => '{include a.tpl}', 'a' => '{rdynamic r,l}{include b.tpl}{/rdynamic}', 'b' => '{dynamic r,m}{r::*}{/dynamic}'], ['b.tpl']];
        yield 'a circle' => [['page' => '{include a.tpl}', 'a' => "\n{include page.tpl}"], ['page.tpl']];
        yield 'a circle under another name' => [['page' => '{include a.tpl}', 'a' => "\n{include ./page.tpl}"], ['./page.tpl']];
        yield 'a circle by the data' => [['page' => '{include a.tpl}', 'a' => "\n{include b.tpl}", 'b' => '{include p::a}'], ['p::a']];
        yield 'braces that pair' => [['page' => '}{include a.tpl}', 'a' => '}'], ['a.tpl']];
        yield 'braces that pair behind' => [['page' => '{include a.tpl}}', 'a' => '}}}'], ['a.tpl']];
        yield 'braces that pair across' => [['page' => '}{include a.tpl}}', 'a' => ''], ['a.tpl']];
        yield 'braces that pair in the next' => [['page' => '{include a.tpl}{include b.tpl}', 'a' => 'a}', 'b' => '}'], ['b.tpl']];
        yield 'braces that begin a tag' => [['page' => '{include a.tpl}x}', 'a' => 'a{'], ['a.tpl']];
        yield 'braces that stay alone' => [['page' => '{x}{include a.tpl}{include b.tpl} {{{include a.tpl}}}', 'a' => '}}{x}', 'b' => '}} }']];
        yield 'behind a brace that is text' => [['page' => '{{include a.tpl}{a{include a.tpl}', 'a' => 'A']];
        yield 'NUL' => [['page' => "{include a.tpl}\0{x}", 'a' => "\0{x}\0"]];
        yield 'a bad path' => [['page' => "\n<{include a.tpl}\n>{include b.tpl}", 'a' => "\n\0a\n{include b.tpl}", 'b' => "\n{bad::}"]];
        yield 'a bad path behind' => [['page' => "\n<{include\n a.tpl}\n{bad::}", 'a' => "\n"]];
        yield 'a bad path while a loop runs' => [['page' => '{dynamic l}{include a.tpl}{/dynamic}', 'a' => "\n{*::a bad::}"]];
        yield 'a bad path in a file that stays' => [['page' => '{dynamic r,l}{include a.tpl}{/dynamic}', 'a' => "\n{dynamic r,l}{/dynamic}{*::a bad::}"], ['a.tpl']];
    }

    /**
     * @param array<string, string> $files
     * @param list<string> $staying
     */
    #[DataProvider('seams')]
    public function testMakesThePageOfTheFolders(array $files, array $staying = []): void
    {
        $this->write(array_combine(array_map(fn(string $name): string => "f/$name.tpl", array_keys($files)), $files));
        chdir('f');
        $texts = $this->bundle('.');
        $page = array_find($texts, fn(BundledText $text): bool => $text->name === 'page.tpl');

        self::assertSame($staying, preg_replace('/^.*{include\s+|}$/', '', $page?->includes() ?? []));
        $this->assertSameOutcomes('.', $texts, fn(): array => self::DATA);
    }

    public function testMakesThePagesOfFoldersByChance(): void
    {
        $random = new Randomizer(new Xoshiro256StarStar(20261123));
        for ($round = 0; $round < 1000; ++$round) {
            $bits = self::BITS;
            foreach (['c.tpl', 'b.tpl', 'a.tpl', 'page.tpl'] as $file) {
                $this->write([$file => self::text($random, $bits, 0)]);
                array_push($bits, ...array_fill(0, 8, "{include $file}"));
            }
            $this->assertSameOutcomes('.', $this->bundle('.'), fn(): array => self::DATA);
        }
    }

    /** @return iterable<string, array{string, Closure(): array<array-key, mixed>}> */
    public static function examples(): iterable
    {
        $root = dirname(__DIR__, 3);
        /** @var array{categories: list<array{products: list<array<string, mixed>>}>} $shop */
        $shop = json_decode((string) file_get_contents("$root/examples/shop/catalogue.json"), true);
        $detail = ['title' => 'A & B', 'category' => $shop['categories'][0], 'product' => $shop['categories'][0]['products'][0]];
        yield 'shop' => ["$root/examples/shop/templates", static fn(): array => $shop + $detail];
        foreach (glob("$root/examples/pages/*", GLOB_ONLYDIR) ?: [] as $folder) {
            yield basename($folder) => [$folder, static fn(): array => (array) require "$folder/data.php"];
        }
        yield 'benchmark' => ["$root/bench/templates/zorvel", static fn(): array => Pages::get('small')->data + Pages::get('catalogue-10')->data];
    }

    /** @param Closure(): array<array-key, mixed> $data */
    #[DataProvider('examples')]
    public function testMakesThePagesOfTheExamples(string $folder, Closure $data): void
    {
        $texts = $this->bundle($folder);

        self::assertSame([], array_merge(...array_map(fn(BundledText $text): array => $text->includes(), $texts)));
        $this->assertSameOutcomes($folder, $texts, $data);
    }

    public function testTakesTheFirstFolderThatHasAName(): void
    {
        $this->write(['own/a.tpl' => 'own', 'own/z.txt' => '', 'base/a.tpl' => 'base', 'base/in/page.txt' => '{include a.tpl}{include in/b.css}', 'base/in/b.css' => 'b']);
        $texts = new Bundler(['own', 'base'], ['txt'])->texts();
        file_put_contents('bundle.php', Bundler::php($texts));

        self::assertSame(['in/page.txt', 'z.txt'], array_column($texts, 'name'));
        self::assertSame('ownb', View::bundled('bundle.php')->render('in/page.txt'));
        self::assertSame('a.tpl: No such template in bundle.php at byte ', self::outcome(View::bundled('bundle.php'), 'a.tpl', []));
    }

    public function testRefusesDataThatNamesAnotherFile(): void
    {
        $this->write(['page.tpl' => '{include a.tpl}{include 7}', 'a.tpl' => '{x}', 'b.tpl' => 'B']);
        file_put_contents('7', '{y}');
        $this->bundle('.');
        $view = View::bundled('bundle.php');
        $view->share(['x' => 'X', 'a.tpl' => true]);
        $error = 'page.tpl: The data has a.tpl, by which the bundle includes a file: rename the one or the other at byte ';

        self::assertSame('X{y}', $view->render('page.tpl', [7 => 'b.tpl']));
        self::assertSame([$error, 'B'], [self::outcome($view, 'page.tpl', ['a.tpl' => 'b.tpl']), $view->render('b.tpl', ['a.tpl' => 'b.tpl'])]);
    }

    public function testOpensTheIncludesThatStayInItsFolders(): void
    {
        $this->write(['t/page.tpl' => "<{include p::a}", 't/a.tpl' => 'A', 'other/a.tpl' => "\n{bad::}"]);
        $this->bundle('t');
        $views = [View::bundled('bundle.php', ['other', 't']), View::bundled('bundle.php', 't'), View::bundled('bundle.php')];
        $outcomes = array_map(fn(View $view): string => self::outcome($view, 'page.tpl', self::DATA), [...$views, View::bundled('bundle.php', 'other')]);
        $error = "a.tpl:2: Bad formated parameter'bad::': too many : at byte 1";

        self::assertSame([$error, '<A', 'page.tpl:1: An include has stayed in the bundle: give the folders as well at byte 1', $error], $outcomes);
    }

    public function testTakesNothingButABundle(): void
    {
        $this->write(['none.php' => '<?php return 5;']);
        $refusals = array_map(static function (string $file): string {
            try {
                return View::bundled($file)::class;
            } catch (InvalidArgumentException $refusal) {
                return $refusal->getMessage();
            }
        }, ['missing.php', 'none.php']);

        self::assertSame(['No such bundle: missing.php', 'No bundle: none.php'], $refusals);
    }

    public function testLoadsNothingButWhatAPageTakes(): void
    {
        $this->write(['page.tpl' => '{x}', 'other/bundle.php' => '<?php return 0;']);
        $this->bundle('.');
        $program = 'require "' . dirname(__DIR__, 2) . '/vendor/autoload.php"; echo %s->render("page.tpl", ["x" => 1]), ":", implode(" ", preg_grep("/^Zorvel/", get_declared_classes()));';

        self::assertSame([0, '1:Zorvel\View Zorvel\Folders Zorvel\Bundle Zorvel\DataWalk Zorvel\Engine', ''], $this->php(['-d', "include_path=$this->folder/other", '-r', sprintf($program, 'Zorvel\View::bundled("bundle.php")')]));
        self::assertSame([0, '1:Zorvel\View Zorvel\Folders Zorvel\DataWalk Zorvel\Engine', ''], $this->php(['-r', sprintf($program, 'new Zorvel\View(".")')]));
    }

    /** @param list<string> $bits */
    private static function text(Randomizer $random, array $bits, int $depth): string
    {
        $text = '';
        for ($count = $random->getInt(0, 6); $count > 0; --$count) {
            [$opening, $closing] = self::SECTIONS[$random->getInt(0, count(self::SECTIONS) - 1)];
            $isSection = $depth < 3 && $random->getInt(0, 4) === 0;
            $text .= $isSection ? $opening . self::text($random, $bits, $depth + 1) . $closing : $bits[$random->getInt(0, count($bits) - 1)];
        }

        return $text;
    }

    /** @return list<BundledText> */
    private function bundle(string $folder): array
    {
        $texts = new Bundler([$folder], ['tpl', 'html'])->texts();
        file_put_contents("$this->folder/bundle.php", Bundler::php($texts));

        return $texts;
    }

    /**
     * @param list<BundledText> $texts
     * @param Closure(): array<array-key, mixed> $data
     */
    private function assertSameOutcomes(string $folder, array $texts, Closure $data): void
    {
        [$view, $bundled] = [new View($folder), View::bundled("$this->folder/bundle.php", $folder)];
        foreach (array_column($texts, 'name') as $name) {
            self::assertSame(self::outcome($view, $name, $data()), self::outcome($bundled, $name, $data()), $name);
        }
    }

    /** @param array<array-key, mixed> $data */
    private static function outcome(View $view, string $name, array $data): string
    {
        try {
            return $view->render($name, $data);
        } catch (TemplateError $error) {
            return "{$error->getMessage()} at byte {$error->getTag()?->offset}";
        }
    }
}
