<?php

declare(strict_types=1);

namespace Zorvel\Tests;

use ArrayIterator;
use ArrayObject;
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
    public function jsonSerialize(): string
    {
        return 'json';
    }

    public function __toString(): string
    {
        return 'text';
    }
}

final readonly class Json implements JsonSerializable, Stringable
{
    public function __construct(private mixed $data) {}

    public function jsonSerialize(): mixed
    {
        return $this->data === $this::class ? $this : $this->data;
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
        $items = [['tags' => ['b', 'a']], ['tags' => ['d', 'c']]];
        foreach ($items as &$item) {
            sort($item['tags']);
        }
        $pdo = new PDO('sqlite::memory:');
        $rows = $pdo->query("SELECT 1 AS id, 9.5 AS price, NULL AS note UNION SELECT 2, 10.0, 'new'");
        $all = new Everything(['element']);
        $generator = (function () use ($all) {
            yield 1;
            yield from [2, 'x' => 3];
            yield $all => 4;
        })();

        yield 'references' => ['{dynamic i,items}{dynamic i::*::tags}{*}{/dynamic}{/dynamic}{items::1::tags::0}', ['items' => $items], 'abcdc'];
        yield 'rows of PDO' => ["{dynamic r,rows}{rawurlencode r::*::id} {htmlspecialchars r::*::price} {r::*::note '-'};{/dynamic}", ['rows' => $rows], '1 9.5 -;2 10 new;'];
        yield 'numbers in filters' => ['{rawurlencode n}|{htmlspecialchars f}|{addslashes s}', ['n' => 2, 'f' => 21.0, 's' => 0.1 + 0.2], '2|21|0.3'];
        yield 'numbers compared' => ['{optional n 3}int{/optional} {optional f 3}float{/optional} {optional n 4}no{/optional}', ['n' => 3, 'f' => 3.0], 'int float '];
        yield 'numbers that are false' => ['{optional a}a{/optional}{optional b}b{/optional}{optional c}c{/optional}{optional d}d{/optional}', ['a' => 0, 'b' => 0.0, 'c' => -0.0, 'd' => 0.1], 'd'];
        yield 'booleans' => ['{a}{optional a}t{/optional}{optional b 0}f{/optional}{b}|{htmlspecialchars a}', ['a' => true, 'b' => false], '1tf|'];
        yield 'null' => ["{a 'none'} {b::c a 'none'} {dynamic l}{[*]}:{*} {/dynamic}", ['a' => null, 'b' => ['c' => null], 'l' => ['x', null]], 'none none 0:x 1: '];
        yield 'date' => ['{d}', ['d' => new DateTimeImmutable('2026-11-23 09:30 Europe/Berlin')], '2026-11-23T09:30:00+01:00'];
        yield 'enums' => ['{s} {optional s 2}paid{/optional} {u}', ['s' => Status::Paid, 'u' => Suit::Hearts], '2 paid Hearts'];
        yield 'array object' => ['{a::b}{dynamic a}{[*]}{/dynamic}', ['a' => new ArrayObject(['b' => 1, 'c' => null])], '1b'];
        yield 'generator whose keys come again' => ['{dynamic g}{[*]}{*} {/dynamic}', ['g' => $generator], '01 12 x3 24 '];
        yield 'properties' => [
            "{a::title} {a::slug} {a::subtitle '-'}{a::next '-'}{a::secret '-'}{dynamic a::tags}[{*}]{/dynamic}",
            ['a' => new Article('News', ['x', null])],
            'News news ---[x][]',
        ];
        yield 'decoded JSON' => ['{a::0::b}', ['a' => json_decode('[{"b": 1.5}]')], '1.5'];
        yield 'JSON before text' => ["{a::n}{b 'none'}", ['a' => new Json(['n' => Status::Paid]), 'b' => new Json(null)], '2none'];
        yield 'elements before JSON and text' => ['{dynamic a}{*}{/dynamic}', ['a' => $all], 'element'];
        yield 'raw' => ['{dynamic r}{*::n}{/dynamic}|{htmlspecialchars t::n}', ['r' => new Raw([['n' => null]]), 't' => new Raw(['n' => 5])], '|'];
    }

    /** @param array<string, mixed> $data */
    #[DataProvider('data')]
    public function testShowsDataAsProgramsHaveIt(string $template, array $data, string $page): void
    {
        self::assertSame($page, $this->page($template, $data));
    }

    public function testLeavesTheCallersDataAlone(): void
    {
        $data = ['list' => [3, 1], 'map' => ['n' => null, 'd' => new DateTimeImmutable('@0')]];
        $data['again'] = &$data['list'];
        $copy = serialize($data);
        $this->page('{list::0}{map::d}', $data);

        self::assertSame($copy, serialize($data));
    }

    /** @return iterable<string, array{array<string, mixed>, string}> */
    public static function refused(): iterable
    {
        $article = new Article('News');
        $article->next = $article;
        $list = [1];
        $list[] = &$list;
        $endless = static function () {
            while (true) {
                yield 1;
            }
        };

        yield 'closure' => [['order' => ['items' => new ArrayIterator([1, 2, (object) ['call' => strlen(...)]])]], 'order::items::2::call is a Closure'];
        yield 'resource' => [['a' => ['file' => STDIN]], 'a::file is a resource'];
        yield 'generator without end' => [['a' => ['b' => $endless()]], 'a::b has no end'];
        yield 'object in a circle' => [['article' => $article], 'article' . str_repeat('::next', 7) . '::… is nested too deeply, or stands within itself'];
        yield 'array in a circle' => [['l' => $list], 'l' . str_repeat('::1', 7) . '::… is nested too deeply, or stands within itself'];
        yield 'JSON that is itself' => [['j' => new Json(Json::class)], 'j is nested too deeply, or stands within itself'];
    }

    /** @param array<string, mixed> $data */
    #[DataProvider('refused')]
    public function testRefusesWhatNoTemplateCanShow(array $data, string $reason): void
    {
        self::assertSame("page.tpl: $reason", self::failure(new View($this->folder(['page.tpl' => ''])), 'page.tpl', $data)->getMessage());
    }
}
