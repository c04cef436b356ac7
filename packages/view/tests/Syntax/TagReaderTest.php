<?php

declare(strict_types=1);

namespace Zorvel\Tests\Syntax;

use PHPUnit\Framework\Attributes\DataProvider;
use PHPUnit\Framework\TestCase;
use Random\Engine\Xoshiro256StarStar;
use Random\Randomizer;
use Zorvel\Syntax\Tag;
use Zorvel\Syntax\TagKind;
use Zorvel\Syntax\TagReader;

final class TagReaderTest extends TestCase
{
    /** What the random templates consist of: no quotes, colons or stars, so that none of them is at fault. */
    private const array PIECES = ['{', '{', '{', '}', '}', '{{', '}}', ' ', "\n", "\t", "\r", "\f", "\v", "\0", 'a', 'b', 'é'];

    /** Braces are left out of the comparison: how many of them a literal one needs is not the reader's matter. */
    public function testFindsTheTagsThatTheExtensionFinds(): void
    {
        $random = new Randomizer(new Xoshiro256StarStar(20261123));
        for ($round = 0; $round < 5000; ++$round) {
            $source = $this->randomTemplate($random);
            $tags = new TagReader()->read($source);
            $unknown = $this->pageOf($source, $tags, fn(Tag $tag): string => $tag->parameter);
            self::assertSame($unknown, $this->rendered($source, []), json_encode($source) ?: '');

            $data = $this->dataFor($tags);
            $known = $this->pageOf($source, $tags, fn(Tag $tag): string => $data[$tag->paths()[0] ?? ''] ?? $tag->parameter);
            self::assertSame($known, $this->rendered($source, $data), json_encode($source) ?: '');
        }
    }

    /** @return iterable<string, array{string, TagKind, string}> */
    public static function tagTexts(): iterable
    {
        $texts = [
            ['name', TagKind::Variable, 'name'], ["\fa\t'b' \v", TagKind::Variable, "a\t'b'"], ["\f\v", TagKind::Variable, "\f\v"],
            ['Optional a', TagKind::Variable, 'Optional a'], ["\finclude a", TagKind::Variable, 'include a'],
            ['inc', TagKind::Variable, 'inc'], ['htmlentit', TagKind::Variable, 'htmlentit'], ['!dynamic a', TagKind::Variable, '!dynamic a'],
            ['addslashes x', TagKind::Addslashes, 'x'], ['htmlentitiesx', TagKind::Htmlentities, 'x'],
            ['htmlspecialchars_x', TagKind::Htmlspecialchars, '_x'], ["rawurlencode\nx ", TagKind::Rawurlencode, 'x'],
            ['optionalx', TagKind::Optional, 'x'], ['!optional x', TagKind::NotOptional, 'x'],
            ['dynamicx', TagKind::Dynamic, 'x'], ['rdynamics x', TagKind::ReverseDynamic, 's x'],
        ];
        foreach ($texts as $row) {
            yield trim(json_encode($row[0]) ?: '', '"') => $row;
        }
    }

    /** The kind and the parameter are right when the extension does with the tag what this kind does with this parameter. */
    #[DataProvider('tagTexts')]
    public function testTellsATagAsTheExtensionDoes(string $text, TagKind $kind, string $parameter): void
    {
        [$tag] = new TagReader()->read("{{$text}}");
        self::assertSame([$kind, $parameter], [$tag->kind, $tag->parameter]);

        $value = "<i>it's \"é\"&co</i>";
        $close = $kind->closing() === null ? '' : "body{{$kind->closing()->value}}";
        $word = $tag->paths()[0] ?? '';
        $expected = match (true) {
            $kind === TagKind::Variable => $word === '' ? "{{$parameter}}" : $value,
            $kind === TagKind::NotOptional, $kind->isLoop() => '',
            $kind === TagKind::Optional => 'body',
            $kind === TagKind::Addslashes => addslashes($value),
            $kind === TagKind::Htmlentities => htmlentities($value, ENT_COMPAT),
            $kind === TagKind::Htmlspecialchars => htmlspecialchars($value, ENT_COMPAT),
            default => rawurlencode($value),
        };
        self::assertSame($expected, zorvel("{{$text}}$close", [$word => $value], true));
    }

    public function testKnowsWhereATagStands(): void
    {
        $tags = new TagReader()->read("é {{\n{a\nb}{x{}}c}\n { \n{last{");
        $places = array_map(fn(Tag $tag): array => [$tag->text, $tag->offset, $tag->length, $tag->line, $tag->isClosed], $tags);

        self::assertSame([["a\nb", 6, 5, 2, true], ['x{}', 11, 5, 3, true], ['last{', 23, 6, 5, false]], $places);
    }

    /** @return iterable<string, array{string, list<string>, string, ?string, bool}> */
    public static function parameters(): iterable
    {
        yield 'alternatives' => ["{a  b::c\n'it's d'}", ['a', 'b::c'], '', null, true];
        yield 'a filter takes all for one path' => ["{htmlspecialchars a 'b'}", ["a 'b'"], '', null, false];
        yield 'a text to compare with' => ["{!optional a  'b c'}", ['a'], '', " 'b c'", false];
        yield 'a loop without a name' => ['{dynamic rows}', ['rows'], '', null, false];
        yield 'a loop with a name' => ['{rdynamic row, rows,x}', [' rows,x'], 'row', null, false];
        yield 'a closing tag' => ['{/optional of a}', [], '', null, false];
        yield 'nothing' => ['{optional}', [''], '', null, false];
    }

    /** @param list<string> $paths */
    #[DataProvider('parameters')]
    public function testTakesAParameterApart(string $source, array $paths, string $loop, ?string $compared, bool $default): void
    {
        [$tag] = new TagReader()->read($source);

        self::assertSame(
            [$paths, $loop, $compared, $default],
            [$tag->paths(), $tag->loopName(), $tag->compareText(), $tag->hasDefault()],
        );
    }

    private function randomTemplate(Randomizer $random): string
    {
        $template = '';
        for ($count = $random->getInt(1, 14); $count > 0; --$count) {
            $template .= self::PIECES[$random->getInt(0, count(self::PIECES) - 1)];
        }

        return $template;
    }

    /**
     * @param list<Tag> $tags
     * @param callable(Tag): string $valueOf
     */
    private function pageOf(string $source, array $tags, callable $valueOf): string
    {
        foreach (array_reverse($tags) as $tag) {
            $source = substr_replace($source, $valueOf($tag), $tag->offset, $tag->length);
        }

        return str_replace(['{', '}'], '', $source);
    }

    /**
     * @param list<Tag> $tags
     * @return array<string, string>
     */
    private function dataFor(array $tags): array
    {
        $names = array_merge(...array_map(fn(Tag $tag): array => array_slice($tag->paths(), 0, 1), $tags));

        return array_combine($names, array_map(fn(string $name): string => '<' . strlen($name) . '>', $names));
    }

    /** @param array<string, string> $data */
    private function rendered(string $source, array $data): string
    {
        return str_replace(['{', '}'], '', zorvel($source, $data, true) ?? 'null');
    }
}
