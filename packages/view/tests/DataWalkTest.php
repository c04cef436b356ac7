<?php

declare(strict_types=1);

namespace Zorvel\Tests;

use ArrayIterator;
use ArrayObject;
use Closure;
use DateTimeImmutable;
use JsonSerializable;
use PDO;
use PHPUnit\Framework\Attributes\DataProvider;
use Stringable;
use Zorvel\Raw;
use Zorvel\View;

enum Status: int
{
    case Paid = 2;
}

enum Suit
{
    case Hearts;
}

/** @extends ArrayIterator<int, string> */
final class Everything extends ArrayIterator implements JsonSerializable, Stringable
{
    public function __construct()
    {
        parent::__construct(['element']);
    }

    public function jsonSerialize(): string
    {
        return 'json';
    }

    public function __toString(): string
    {
        return 'text';
    }
}

final class Article
{
    public ?string $subtitle = null;
    public string $slug { get => strtolower($this->title); }
    public self $next;

    /** @param list<?string> $tags */
    public function __construct(public readonly string $title, public array $tags = [], protected int $secret = 1) {}
}

final class DataWalkTest extends TemplatesTestCase
{
    /** @return iterable<string, array{string, array<string, mixed>, string}> */
    public static function data(): iterable
    {
        $items = [['title' => 'Tea'], ['title' => 'Cake']];
        foreach ($items as &$item) {
            sort($item);
        }
        yield 'references that foreach leaves' => ['{dynamic i,items}{i::*::0} {/dynamic}{items::1::0}', ['items' => $items], 'Tea Cake Cake'];
        $tags = ['tags' => ['b', 'a']];
        $inner = &$tags['tags'];
        sort($inner);
        yield 'reference to an inner list' => ['{dynamic i,items}{dynamic i::*::tags}{*}{/dynamic}{/dynamic}', ['items' => [$tags]], 'ab'];

        yield 'numbers in filters' => ['{rawurlencode next}|{htmlspecialchars total}|{addslashes sum}', ['next' => 2, 'total' => 21.0, 'sum' => 0.1 + 0.2], '2|21|0.3'];
        yield 'numbers compared' => ['{optional n 3}int{/optional} {optional f 3}float{/optional} {optional n 4}no{/optional}', ['n' => 3, 'f' => 3.0], 'int float '];
        yield 'numbers that are nothing' => ['{optional a}a{/optional}{optional b}b{/optional}{optional c}c{/optional}{optional d}d{/optional}', ['a' => 0, 'b' => 0.0, 'c' => -0.0, 'd' => 0.1], 'd'];
        yield 'booleans' => ['{a}{optional a}t{/optional}{optional b 0}f{/optional}{b}|{htmlspecialchars a}', ['a' => true, 'b' => false], '1tf|'];
        yield 'null in a map and in a list' => ["{a 'none'} {b::c a 'none'} {dynamic l}{[*]}:{*} {/dynamic}", ['a' => null, 'b' => ['c' => null], 'l' => ['x', null]], 'none none 0:x 1: '];
        yield 'text' => ["{a}{b}", ['a' => '0', 'b' => "é\u{202f}<"], "0é\u{202f}<"];

        yield 'date' => ['{d}', ['d' => new DateTimeImmutable('2026-11-23 09:30 Europe/Berlin')], '2026-11-23T09:30:00+01:00'];
        yield 'enums' => ['{s} {optional s 2}paid{/optional} {u}', ['s' => Status::Paid, 'u' => Suit::Hearts], '2 paid Hearts'];
        yield 'array object' => ['{a::b}{dynamic a}{[*]}{/dynamic}', ['a' => new ArrayObject(['b' => 1, 'c' => null])], '1b'];
        yield 'entity' => [
            "{a::title} {a::slug} {a::subtitle 'none'} {a::next 'none'} {a::secret 'none'}{dynamic a::tags}[{*}]{/dynamic}",
            ['a' => new Article('News', ['x', null])], 'News news none none none[x][]',
        ];
        yield 'decoded JSON' => ['{a::0::b}', ['a' => json_decode('[{"b": 1.5}]')], '1.5'];
        yield 'traversable, JSON and text in one' => ['{dynamic a}{*}{/dynamic}', ['a' => new Everything()], 'element'];
        yield 'JSON and text in one' => ["{a::n}{b 'none'}", ['a' => self::json(['n' => Status::Paid]), 'b' => self::json(null)], '2none'];
        yield 'generator whose keys come again' => ['{dynamic g}{[*]}{*} {/dynamic}', ['g' => (function () {
            yield 1;
            yield from [2, 'x' => 3];
            yield new Everything() => 4;
        })()], '01 12 x3 24 '];
        yield 'raw' => ['{dynamic r}{*::n}{/dynamic}|{htmlspecialchars t::n}', ['r' => new Raw([['n' => null]]), 't' => new Raw(['n' => 5])], '|'];
    }

    /** @param array<string, mixed> $data */
    #[DataProvider('data')]
    public function testShowsDataAsProgramsHaveIt(string $template, array $data, string $page): void
    {
        self::assertSame($page, $this->page($template, $data));
    }

    public function testShowsRowsAsPdoGivesThem(): void
    {
        $pdo = new PDO('sqlite::memory:');
        $rows = $pdo->query("SELECT 1 AS id, 9.5 AS price, 'Tea' AS title, NULL AS note UNION SELECT 2, 10.0, 'Cake', '<new>'");
        $template = "{dynamic r,rows}{rawurlencode r::*::id} {htmlspecialchars r::*::price} {r::*::title}: {r::*::note 'none'}\n{/dynamic}";

        self::assertSame("1 9.5 Tea: none\n2 10 Cake: <new>\n", $this->page($template, ['rows' => $rows]));
    }

    public function testLeavesTheCallersDataAlone(): void
    {
        $data = ['list' => [3, 1], 'map' => ['n' => null, 'd' => new DateTimeImmutable('@0')]];
        $data['again'] = &$data['list'];
        $copy = serialize($data);
        $this->page('{list::0}{map::d}', $data);

        self::assertSame($copy, serialize($data));
    }

    /** @return iterable<string, array{Closure(): array<string, mixed>, string}> */
    public static function refused(): iterable
    {
        $closure = fn(): array => ['order' => ['items' => new ArrayIterator([1, 2, 3, (object) ['callback' => strlen(...)]])]];
        yield 'closure' => [$closure, 'order::items::3::callback is a Closure'];
        yield 'resource' => [fn(): array => ['a' => ['file' => STDIN]], 'a::file is a resource'];
        yield 'object in a circle' => [function (): array {
            $article = new Article('News');
            $article->next = $article;

            return ['article' => $article];
        }, 'article::next::next::next::next::next::next::next::… is nested too deeply, or stands within itself'];
        yield 'array in a circle' => [function (): array {
            $list = [1];
            $list[] = &$list;

            return ['l' => $list];
        }, 'l::1::1::1::1::1::1::1::… is nested too deeply, or stands within itself'];
        yield 'JSON that is itself' => [fn(): array => ['j' => self::json(null, itself: true)], 'j is nested too deeply, or stands within itself'];
        yield 'generator without end' => [fn(): array => ['a' => ['b' => (function () {
            while (true) {
                yield 1;
            }
        })()]], 'a::b has no end'];
    }

    /** @param Closure(): array<string, mixed> $data */
    #[DataProvider('refused')]
    public function testRefusesWhatNoTemplateCanShow(Closure $data, string $reason): void
    {
        $error = self::failure(new View($this->folder(['page.tpl' => 'page'])), 'page.tpl', $data());

        self::assertSame("page.tpl: $reason", $error->getMessage());
    }

    private static function json(mixed $data, bool $itself = false): JsonSerializable
    {
        return new class ($data, $itself) implements JsonSerializable, Stringable {
            public function __construct(private mixed $data, private bool $itself) {}

            public function jsonSerialize(): mixed
            {
                return $this->itself ? $this : $this->data;
            }

            public function __toString(): string
            {
                return 'text';
            }
        };
    }
}
