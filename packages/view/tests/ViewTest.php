<?php

declare(strict_types=1);

namespace Zorvel\Tests;

use Closure;
use InvalidArgumentException;
use LogicException;
use PHPUnit\Framework\Attributes\DataProvider;
use PHPUnit\Framework\Attributes\TestWith;
use Stringable;
use Zorvel\Raw;
use Zorvel\View;

final class ViewTest extends TemplatesTestCase
{
    public function testFindsTemplatesAndIncludesInItsFoldersInOrder(): void
    {
        $own = $this->folder(['sub/page.tpl' => '{include part.tpl}', 'part.tpl' => 'own'], 'own');
        $base = $this->folder(['part.tpl' => 'base', 'list.tpl' => '{include part.tpl} {include sub/page.tpl}'], 'base');
        chdir($this->folder(['part.tpl' => 'working directory'], 'elsewhere'));

        self::assertSame('own', new View($own)->render('sub/page.tpl'));
        self::assertSame('own own', new View([$own, $base])->render('list.tpl'));
        self::assertSame('base base', new View([$base, $own])->render('list.tpl'));
    }

    #[TestWith(['../secret.tpl'])]
    #[TestWith(['sub/../../secret.tpl'])]
    #[TestWith(['..\secret.tpl'])]
    #[TestWith(['./page.tpl'])]
    #[TestWith(['sub//page.tpl'])]
    #[TestWith(['.. /secret.tpl'])]
    #[TestWith(['/etc/hostname'])]
    #[TestWith(['C:page.tpl'])]
    #[TestWith(['data:text/plain,x'])]
    #[TestWith(['file:///etc/hostname'])]
    #[TestWith(["page.tpl\0.html"])]
    #[TestWith(['sub'])]
    #[TestWith(['missing.tpl'])]
    #[TestWith([''])]
    public function testRefusesWhatIsNoTemplateInTheFolders(string $name): void
    {
        $this->folder(['secret.tpl' => 'secret'], '.');
        chdir($folder = $this->folder(['page.tpl' => 'page', 'sub/page.tpl' => 'page']));
        $error = self::failure(new View($folder), $name);

        self::assertSame([$name, null], [$error->getTemplate(), $error->getTemplateLine()]);
        self::assertStringStartsWith("$name: ", $error->getMessage());
    }

    public function testRefusesAFolderThatIsNotThere(): void
    {
        $this->expectException(InvalidArgumentException::class);
        new View('/no/such/folder');
    }

    /** @return iterable<string, array{Closure(): string, string}> what a value does while the page is made, and the page */
    public static function users(): iterable
    {
        yield 'goes on' => [fn(): string => 'x', 'x, part'];
        yield 'throws' => [fn(): string => throw new LogicException('user'), 'LogicException: user'];
        yield 'renders' => [fn(): string => new View(__DIR__ . '/folder')->render('greeting.tpl'), "Hello part of tests\n, part"];
        yield 'fails to render' => [
            fn(): string => new View(__DIR__ . '/folder')->render('missing.tpl'),
            'Zorvel\TemplateError: missing.tpl: No such file in ' . __DIR__ . '/folder',
        ];
    }

    /** @param Closure(): string $act */
    #[DataProvider('users')]
    public function testPutsBackWhatItChangesForACall(Closure $act, string $expected): void
    {
        $value = new readonly class ($act) implements Stringable {
            /** @param Closure(): string $act */
            public function __construct(private Closure $act) {}

            public function __toString(): string
            {
                return ($this->act)();
            }
        };
        $view = new View($this->folder(['page.tpl' => '{user::name}, {include part.tpl}', 'part.tpl' => 'part']));
        set_error_handler($handler = static fn(): bool => false);
        try {
            $page = $view->render('page.tpl', ['user' => new Raw(['name' => $value])]);
        } catch (\Exception $error) {
            $page = $error::class . ": {$error->getMessage()}";
        }
        $after = [get_include_path(), set_error_handler(null)];
        restore_error_handler();
        restore_error_handler();

        self::assertSame($expected, $page);
        self::assertSame([ini_get('include_path'), $handler], $after);
        self::assertSame('.:', substr(get_include_path(), 0, 2));
    }

    public function testSharesDataThatWhatIsGivenOverrides(): void
    {
        $view = new View($this->folder(['page.tpl' => "{site} {user 'nobody'}"]));
        $view->share(['site' => 'a', 'user' => 'Ann']);
        $view->share(['site' => 'b']);

        self::assertSame('b Ann', $view->render('page.tpl'));
        self::assertSame('b nobody', $view->render('page.tpl', ['user' => null]));
    }

    /** @return iterable<string, array{string, string, string, ?int, 3?: array<string, mixed>}> */
    public static function faults(): iterable
    {
        $rows = ['rows' => [1], 'more' => [1]];
        yield 'section left open' => ["{optional a}{/optional}\n{dynamic b}{!optional c}{/optional}", 'Missing closing tag', 'part in.tpl', 2];
        yield 'section closed otherwise' => ["{dynamic a}\n{dynamic b}{/dynamic}\n{/optional}", 'Unexpected closing optional tag', 'part in.tpl', 3];
        yield 'bad path' => ["{a}{{\n{optional a}{b a:::b}{/optional}{a:::b}", "Bad formated parameter'a:::b': too many :", 'part in.tpl', 2];
        yield 'path with a brace and a blank' => ["{dynamic a}{/dynamic}\n{dynamic r, a{b::}{/dynamic}", "Bad formated parameter' a{b::': too many :", 'part in.tpl', 2];
        yield 'two stars' => ["{*::a}\n{*::*}", 'Bad formated parameter: too many *', 'part in.tpl', 2];
        yield 'two loops' => ["{a::b}\n{dynamic a::b::*}{/dynamic}", 'Bad formated parameter: too many namespaces', 'part in.tpl', 2];
        yield 'below a key' => ["{[*]}\n{htmlentities [*]::a}", 'Bad formated parameter: [*] must be last', 'part in.tpl', 2];
        yield 'include of nothing' => ["{included}\n{include}", 'Include block bad parameter: no parameter found', 'part in.tpl', 2];
        yield 'include of elements' => ["{include *b}\n{include *}", "Include block bad parameter '*': asterisk in filename is forbidden", 'part in.tpl', 2];
        yield 'circle' => ["\n{include page.tpl}", "Include block bad parameter 'page.tpl': circle is detected", 'part in.tpl', 2];
        yield 'loop over a key' => ["{dynamic rows}\n{dynamic [*]}{/dynamic}{/dynamic}", "Dynamic block bad parameter '[*]': [*] is forbidden", 'part in.tpl', 2];
        yield 'name taken' => [
            "{dynamic more}{/dynamic}{dynamic r,rows}{dynamic more}{/dynamic}\n{dynamic r,more}{/dynamic}{/dynamic}",
            "Dynamic block bad parameter 'more': namespace is used already", 'part in.tpl', 2, $rows,
        ];
        yield 'quote in a word' => ["{its}\n{it's}", "Variable block bad parameter 'it's': ' is forbidden in variable", 'part in.tpl', 2];
        yield 'found while a loop is rendered' => ["\n{dynamic rows}{*::a b::}{/dynamic}", "Bad formated parameter'b::': too many :", 'part in.tpl', 2, $rows];
        yield 'too deep' => [str_repeat('{!optional a}', 1_000_000), 'Template is nested too deeply', 'part in.tpl', null];
    }

    /** @param array<string, mixed> $data */
    #[DataProvider('faults')]
    public function testTellsWhereAFaultIs(string $part, string $reason, string $template, ?int $line, array $data = []): void
    {
        $view = new View($this->folder(['page.tpl' => "\n\n\n{include part in.tpl}", 'part in.tpl' => $part]));
        $error = self::failure($view, 'page.tpl', $data);

        self::assertSame([$template, $line, $reason], [$error->getTemplate(), $error->getTemplateLine(), $error->getReason()]);
        self::assertSame($line === null ? "$template: $reason" : "$template:$line: $reason", $error->getMessage());
    }

    public function testHandsOtherWarningsToTheHandlerThatIsThere(): void
    {
        $seen = [];
        set_error_handler(function (int $level, string $message) use (&$seen): bool {
            return (bool) $seen[] = [$level, $message];
        });
        $page = $this->page('{a}', ['a' => [1]]);
        $error = self::failure(new View($this->folder(['b.tpl' => '{a}{/optional}'])), 'b.tpl', ['a' => []]);
        restore_error_handler();

        self::assertSame(['Array', 'Unexpected closing optional tag'], [$page, $error->getReason()]);
        self::assertSame(array_fill(0, 2, [E_WARNING, 'Array to string conversion']), $seen);
    }

    public function testLetsTheHandlerThatIsThereThrow(): void
    {
        set_error_handler(fn(int $level, string $message) => throw new LogicException($message));
        try {
            $this->expectExceptionObject(new LogicException('Array to string conversion'));
            $this->page('{a}', ['a' => [1]]);
        } finally {
            restore_error_handler();
        }
    }

    public function testLeavesOtherWarningsToPhpWhereThereIsNoHandler(): void
    {
        set_error_handler(null);
        error_clear_last();
        ini_set('display_errors', '0');
        $page = $this->page('{a}', ['a' => [1]]);
        ini_restore('display_errors');
        restore_error_handler();

        self::assertSame('Array', $page);
        self::assertSame('Array to string conversion', error_get_last()['message'] ?? null);
    }
}
