<?php

declare(strict_types=1);

namespace Zorvel\Tests;

use PHPUnit\Framework\Attributes\DataProvider;
use Zorvel\Raw;
use Zorvel\TemplateError;
use Zorvel\View;

final class StrictTest extends TemplatesTestCase
{
    private const array DATA = [
        'name' => 'Ann', 'flag' => true, 'off' => false, 'zero' => 0, 'n' => 3, 'empty' => [], 'none' => null, '5' => 'five', '-1' => 'x', 'a:b' => 'c',
        'user' => ['name' => 'Bob', '7' => 'seven', '-1' => 'x', '4294967296' => 'x', '007' => 'Bond', 'deep' => ['er' => 'x']],
        'hidden' => ['visible' => false, 'x' => 1], 'state' => 'on sale', 'news' => ['num' => ['r' => 'rain'], 'title' => 'News'],
        'part' => 'inner.tpl', 'rows' => [['tags' => ['red'], 'name' => 'x'], ['tags' => ['k' => 'blue'], 'only' => 1]],
    ];

    private const string PATHS = 'name|nope|none|none::x|user::name|user::nope|user::name::x|user::7|user::007|user::-1|user::4294967296|'
        . 'user::deep::er|5|-1|a:b|rows::0::name|rows::5|*|.*|[*]|*::name|*::only|.*::tags::0|r::*::only|r::*::tags::k|r::[*]|q::*|news::num::r';

    private const string CONDITIONS = 'empty|user|flag|off|zero|hidden|nope|name Ann|name \'Ann\'|name  Ann|n 3|n 03|state on sale|'
        . 'state \'on sale\'|flag 0|off 0|flag x|off x|user x|*|*::only|*::name x|[*]|[*] 0|[*] \'0\'|[*] k|[*] title|r::[*] 1|r::*::only 1|q::*|q::[*] 0';

    private const array AROUND = [
        '%s', '{dynamic rows}%s{/dynamic}', '{dynamic r,rows}{rdynamic *::tags}%s{/rdynamic}{/dynamic}', '{dynamic news}%s{/dynamic}',
        '{dynamic r,rows}{include inner.tpl}{/dynamic}', '{dynamic empty}%s{/dynamic}', '{dynamic r,user::deep}{include part}{/dynamic}',
        '{dynamic r,rows}{include again.tpl}{/dynamic}',
    ];

    /** @return iterable<string, array{string, string, string}> what stands around, the engine's question, and the strict one */
    private static function questions(): iterable
    {
        foreach (self::AROUND as $around) {
            foreach (explode('|', self::PATHS) as $path) {
                yield "$path in $around" => [$around, "{{$path} 'MISSING'}", "{{$path}}"];
            }
            foreach (explode('|', self::CONDITIONS) as $condition) {
                yield "$condition in $around" => [$around, "{optional $condition}MISSING{/optional}", "{optional $condition}{htmlspecialchars nope}{/optional}"];
                yield "not $condition in $around" => [$around, "{!optional $condition}MISSING{/optional}", "{!optional $condition}{include nope}{/optional}"];
            }
        }
    }

    public function testFindsATagExactlyWhereTheEngineComesToNothing(): void
    {
        set_error_handler(static fn(): bool => true, E_WARNING);
        $outcomes = [];
        foreach (self::questions() as $name => [$around, $question, $tag]) {
            $outcomes[$name] = [preg_match('/MISSING|Array/', $this->pageWith($around, $question, false)) === 1, false];
            try {
                $this->pageWith($around, $tag, true);
            } catch (TemplateError) {
                $outcomes[$name][1] = true;
            }
        }
        restore_error_handler();

        self::assertSame([], array_filter($outcomes, static fn(array $outcome): bool => $outcome[0] !== $outcome[1]));
        self::assertEqualsCanonicalizing([false, true], array_values(array_unique(array_column($outcomes, 0))));
    }

    private function pageWith(string $around, string $tag, bool $strict): string
    {
        $this->folder(['inner.tpl' => $tag, 'again.tpl' => '{dynamic r,user::deep}{include inner.tpl}{/dynamic}']);

        return $this->page(str_replace('%s', $tag, $around), self::DATA, $strict);
    }

    /** @return iterable<string, array{string, ?string}> */
    public static function tags(): iterable
    {
        yield 'variable' => ["\n{user::nme}", 'page.tpl:2: user::nme names nothing, and there is no default'];
        yield 'alternatives' => ['{nope user::nme}', 'page.tpl:1: nope or user::nme names nothing, and there is no default'];
        yield 'array' => ["\n{name}{user}", 'page.tpl:2: user is no text, but of type array'];
        yield 'alternatives before an array' => ["{nope user name 'none'}", 'page.tpl:1: user is no text, but of type array'];
        yield 'variable that is no name' => ['p{color:red} a{b:c;d:e} {x}', 'page.tpl:1: x names nothing, and there is no default'];
        yield 'no variable' => ['p{color:red} f(){return(a,b)} {}', null];
        yield 'default' => ["{nope ''}{dynamic rows}{*::only 'none'}{/dynamic}", null];
        yield 'null' => ["{none ''}{none name}{htmlspecialchars none}{dynamic none}{/dynamic}{list::0}", null];
        yield 'null in a loop' => ['{dynamic r,nulls}{r::*::none}{*::none none}{/dynamic}', null];
        yield 'null in place of all elements' => ['{dynamic r,nothing}{r::*::x}{/dynamic}{optional nothing}{nope}{/optional}', null];
        yield 'null that would decide' => ['{optional decided}{nope}{/optional}', 'page.tpl:1: nope names nothing, and there is no default'];
        yield 'null that would be walked' => ['{dynamic r,walked}{r::*::nope}{/dynamic}', 'page.tpl:1: r::*::nope names nothing, and there is no default'];
        yield 'null without a default' => ["\n{nope none}", 'page.tpl:2: nope or none is null, and there is no default'];
        yield 'null before an array' => ['{none user}', 'page.tpl:1: user is no text, but of type array'];
        yield 'filter with a default' => ["{htmlspecialchars nope 'x'}", "page.tpl:1: nope 'x' names nothing"];
        yield 'filter on a boolean' => ['{htmlspecialchars flag}', 'page.tpl:1: flag is no text, but of type bool'];
        yield 'filter on a list' => ["\n{addslashes user}", 'page.tpl:2: user is no text, but of type array'];
        yield 'number in a filter' => ['{htmlspecialchars n}', null];
        yield 'number handed over as it is' => ['{htmlspecialchars raw::n}', 'page.tpl:1: raw::n is no text, but of type int'];
        yield 'data handed over as it is' => ['{optional raw::n 5x}shown{/optional}', null];
        yield 'loop' => ['{dynamic row}{/dynamic}', 'page.tpl:1: row names nothing that can be repeated'];
        yield 'loop over a text' => ['{dynamic user::name}{/dynamic}', 'page.tpl:1: user::name is no array, but of type string'];
        yield 'loop over a text under num' => ['{dynamic sums}{/dynamic}', 'page.tpl:1: sums::num is no array, but of type string'];
        yield 'loop over an element that is a text' => ['{dynamic r,rows}{dynamic r::*::name}{/dynamic}{/dynamic}', 'page.tpl:1: r::*::name is no array, but of type string'];
        yield 'loop over nothing' => ['{dynamic empty}{nope}{/dynamic}', null];
        yield 'loop of another name' => ['{dynamic row,rows}{rows::*::name}{/dynamic}', 'page.tpl:1: rows::*::name names nothing, and there is no default'];
        yield 'include' => ["\n\n{include missing.tpl}", 'page.tpl:3: There is no file missing.tpl'];
        yield 'include through a wrapper' => ['{include php://memory}', null];
        yield 'include in an include' => ['{include part.tpl}', 'part.tpl:2: There is no file missing.tpl'];
        yield 'hidden' => ['{optional off}{nope}{include missing.tpl}{/optional}', null];
        yield 'fault of the template first' => ['{nope}{/optional}', 'page.tpl:1: Unexpected closing optional tag'];
    }

    #[DataProvider('tags')]
    public function testTellsOfTheFirstTagThatComesToNothing(string $template, ?string $message): void
    {
        $folder = $this->folder(['page.tpl' => $template, 'part.tpl' => "\n{include missing.tpl}"]);
        $data = self::DATA + ['nulls' => [['none' => null]], 'list' => [null], 'sums' => ['num' => 3], 'nothing' => ['a' => null],
            'decided' => ['visible' => null, 'x' => 1], 'walked' => ['num' => null, 'x' => ['y' => 1]], 'raw' => new Raw(['n' => 5])];
        if ($message === null) {
            self::assertSame($this->page($template, $data), $this->page($template, $data, strict: true));
        } else {
            self::assertSame($message, self::failure(new View($folder, strict: true), 'page.tpl', $data)->getMessage());
        }
    }

    public function testLoadsNothingForStrictnessWithoutIt(): void
    {
        $autoload = var_export(dirname(__DIR__, 2) . '/vendor/autoload.php', true);
        $program = "require $autoload; echo new Zorvel\View('%s', strict: %s)->render('page.tpl', ['a' => 1]);"
            . 'echo " ", count(preg_grep("/^Zorvel.(Strict|Syntax)/", get_declared_classes())) > 0 ? "loaded" : "not loaded";';
        $folder = $this->folder(['page.tpl' => '{a}']);
        $run = static fn(string $strict): string => (string) shell_exec(dirname(__DIR__, 3) . '/script/php -r ' . escapeshellarg(sprintf($program, $folder, $strict)));

        self::assertSame(['1 not loaded', '1 loaded'], [$run('false'), $run('true')]);
    }
}
