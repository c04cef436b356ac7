<?php

declare(strict_types=1);

namespace Zorvel\Tests;

use Closure;
use Exception;
use InvalidArgumentException;
use LogicException;
use PHPUnit\Framework\Attributes\DataProvider;
use PHPUnit\Framework\Attributes\TestWith;
use Stringable;
use Zorvel\Raw;
use Zorvel\View;

final class ViewTest extends TemplatesTestCase
{
    private const array OUTSIDE = [
        '../secret.tpl', 'sub/../../secret.tpl', '..\secret.tpl', '.. /secret.tpl', './page.tpl', 'sub//page.tpl', '/etc/hostname', 'C:page.tpl',
        'data:text/plain,x', 'file:///etc/hostname', "page.tpl\0.html", 'page.tpl/', '',
    ];

    public function testFindsTemplatesAndIncludesInItsFoldersInOrder(): void
    {
        $own = $this->folder(['sub/page.tpl' => '{include part.tpl}', 'part.tpl' => 'own'], 'own');
        $base = $this->folder(['part.tpl' => 'base', 'list.tpl' => '{include part.tpl} {include sub/page.tpl}', 'sub' => ''], 'base');
        chdir($this->folder(['part.tpl' => 'working directory'], 'elsewhere'));

        self::assertSame('own', new View($own)->render('sub/page.tpl'));
        self::assertSame('own own', new View([$own, $base])->render('list.tpl'));
        self::assertSame('', new View([$base, $own])->render('sub'));
        self::assertStringEndsWith('/own/sub is no regular file', self::failure(new View([$own, $base]), 'sub')->getMessage());
    }

    public function testRefusesNamesThatLeadOutOfTheFolders(): void
    {
        $this->folder(['secret.tpl' => 'secret'], '.');
        chdir($folder = $this->folder(['page.tpl' => 'page', 'sub/page.tpl' => 'page']));
        $messages = array_map(fn(string $name): string => self::failure(new View($folder), $name)->getMessage(), self::OUTSIDE);

        self::assertSame(array_map(fn(string $name): string => "$name: A template is named by its path inside the folders", self::OUTSIDE), $messages);
        self::assertSame("missing.tpl: No such file in $folder", self::failure(new View($folder), 'missing.tpl')->getMessage());
    }

    #[TestWith(['missing'])]
    #[TestWith([''])]
    public function testRefusesAFolderThatIsNone(string $folder): void
    {
        $this->expectExceptionObject(new InvalidArgumentException("No such folder: $folder"));
        new View($folder);
    }

    public function testSharesDataThatWhatIsGivenOverrides(): void
    {
        $view = new View($this->folder(['page.tpl' => "{site} {user 'nobody'}"]));
        $view->share(['site' => 'a', 'user' => 'Ann']);
        $view->share(['site' => 'b']);

        self::assertSame('b Ann', $view->render('page.tpl'));
        self::assertSame('b nobody', $view->render('page.tpl', ['user' => null]));
    }

    /** @return iterable<string, array{Closure(): string, string}> what a value does while the page is made, and the page */
    public static function users(): iterable
    {
        $other = new View(__DIR__ . '/folder');
        yield 'goes on' => [fn(): string => 'x', 'x, part'];
        yield 'throws' => [fn(): string => throw new LogicException('user'), 'user'];
        yield 'renders' => [fn(): string => $other->render('greeting.tpl'), "Hello part of tests\n, part"];
        yield 'fails to render' => [fn(): string => $other->render('missing.tpl'), 'missing.tpl: No such file in ' . __DIR__ . '/folder'];
    }

    /** @param Closure(): string $act */
    #[DataProvider('users')]
    public function testPutsBackWhatItChangesForACall(Closure $act, string $expected): void
    {
        $view = new View($this->folder(['page.tpl' => '{user::name}, {include part.tpl}', 'part.tpl' => 'part']));
        $before = [get_include_path(), $handler = static fn(): bool => false];
        set_error_handler($handler);
        try {
            $page = $view->render('page.tpl', ['user' => new Raw(['name' => self::text($act)])]);
        } catch (Exception $error) {
            $page = $error->getMessage();
        }
        $after = [get_include_path(), set_error_handler(null)];
        restore_error_handler();
        restore_error_handler();

        self::assertSame([$expected, ...$before], [$page, ...$after]);
    }

    /** @return iterable<string, array{string, string, ?int, 3?: array<string, mixed>}> */
    public static function faults(): iterable
    {
        $rows = ['rows' => [1], 'more' => [1]];
        yield 'section left open' => ["{optional a}{/optional}\n{dynamic b}{!optional c}{/optional}", 'Missing closing tag', 2];
        yield 'section closed otherwise' => ["{dynamic a}\n{dynamic b}{/dynamic}\n{/optional}", 'Unexpected closing optional tag', 3];
        yield 'bad path' => ["{a}{{\n{optional a}{b a:::b}{/optional}{a:::b}", "Bad formated parameter'a:::b': too many :", 2];
        yield 'path with braces and a blank' => ["{dynamic a}{/dynamic}\n{dynamic r, a{{{{b::}{/dynamic}", "Bad formated parameter' a{{b::': too many :", 2];
        yield 'two stars' => ["{*::a}\n{*::*}", 'Bad formated parameter: too many *', 2];
        yield 'two loops' => ["{a::b}\n{dynamic a::b::*}{/dynamic}", 'Bad formated parameter: too many namespaces', 2];
        yield 'below a key' => ["{[*]}\n{htmlentities [*]::a}", 'Bad formated parameter: [*] must be last', 2];
        yield 'include of nothing' => ["{included}\n{include}", 'Include block bad parameter: no parameter found', 2];
        yield 'include of elements' => ["{include *b}\n{include *}", "Include block bad parameter '*': asterisk in filename is forbidden", 2];
        yield 'circle' => ["\n{include page.tpl}", "Include block bad parameter 'page.tpl': circle is detected", 2];
        yield 'loop over a key' => ["{dynamic rows}\n{dynamic [*]}{/dynamic}{/dynamic}", "Dynamic block bad parameter '[*]': [*] is forbidden", 2];
        $named = "{dynamic more}{/dynamic}{dynamic r,rows}{dynamic more}{/dynamic}\n{dynamic r,more}{/dynamic}{/dynamic}";
        yield 'name taken' => [$named, "Dynamic block bad parameter 'more': namespace is used already", 2, $rows];
        yield 'quote in a word' => ["{its}\n{it's}", "Variable block bad parameter 'it's': ' is forbidden in variable", 2];
        yield 'found while a loop is rendered' => ["\n{dynamic rows}{*::a b::}{/dynamic}", "Bad formated parameter'b::': too many :", 2, $rows];
        yield 'too deep' => [str_repeat('{!optional a}', 1_000_000), 'Template is nested too deeply', null];
    }

    /** @param array<string, mixed> $data */
    #[DataProvider('faults')]
    public function testTellsWhereAFaultIs(string $part, string $reason, ?int $line, array $data = []): void
    {
        $view = new View($this->folder(['page.tpl' => "\n\n\n{include part in.tpl}", 'part in.tpl' => $part]));
        $error = self::failure($view, 'page.tpl', $data);

        self::assertSame(['part in.tpl', $line, $reason], [$error->getTemplate(), $error->getTemplateLine(), $error->getReason()]);
        self::assertSame($line === null ? "part in.tpl: $reason" : "part in.tpl:$line: $reason", $error->getMessage());
    }

    public function testHandsOtherWarningsToTheHandlerThatIsThere(): void
    {
        $seen = [];
        @ini_set('default_charset', 'nonsense');
        set_error_handler(function (int $level, string $message, string $file) use (&$seen): bool {
            return (bool) $seen[] = [$level, $message, $file === __FILE__];
        });
        error_clear_last();
        $data = ['list' => [1], 'own' => new Raw(['text' => self::text(fn(): string => (string) hex2bin('abc'))])];
        $page = $this->page('{list}{own::text}', $data);
        $error = self::failure(new View($this->folder(['b.tpl' => '{htmlspecialchars a}{/optional}'])), 'b.tpl', ['a' => '<']);
        restore_error_handler();
        ini_restore('default_charset');

        $ofPage = [[E_WARNING, 'Array to string conversion', false], [E_WARNING, 'hex2bin(): Hexadecimal input string must have an even length', true]];
        self::assertSame([...$ofPage, [E_WARNING, 'zorvel(): Charset "nonsense" is not supported, assuming UTF-8', false]], $seen);
        self::assertSame(['Array', 'Unexpected closing optional tag', null], [$page, $error->getReason(), error_get_last()]);
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
        $page = $this->page('{a}', ['a' => [1]]);
        restore_error_handler();

        self::assertSame(['Array', 'Array to string conversion'], [$page, error_get_last()['message'] ?? null]);
    }

    public function testSaysThatTheExtensionIsMissing(): void
    {
        $program = 'require $argv[1]; try { new Zorvel\View($argv[2])->render("a.tpl"); } catch (LogicException $e) { echo $e->getMessage(); }';
        $words = [PHP_BINARY, '-n', '-r', $program, dirname(__DIR__, 3) . '/examples/autoload.php', $this->folder(['a.tpl' => ''])];

        self::assertSame('The extension zorvel is not loaded', shell_exec(implode(' ', array_map(escapeshellarg(...), $words))));
    }

    /** @param Closure(): string $text */
    private static function text(Closure $text): Stringable
    {
        return new readonly class ($text) implements Stringable {
            /** @param Closure(): string $text */
            public function __construct(private Closure $text) {}

            public function __toString(): string
            {
                return ($this->text)();
            }
        };
    }
}
