<?php

declare(strict_types=1);

namespace Zorvel\Tools\Tests;

use PHPUnit\Framework\Attributes\DataProvider;
use Zorvel\Tests\Recipe;
use Zorvel\Tools\Finding;
use Zorvel\Tools\Template\Template;

final class SilentFaultsTest extends ToolsTestCase
{
    /** Examples of the documents that show a trap, each with what is found in it. */
    private const array TRAPS = [
        'Hello {name' => ['unclosed-tag'],
        '{optionalFlag}shown{/optional of Flag}' => ['glued-keyword'],
        '{rows::*}' => ['unknown-loop'],
        '{*::nick}' => ['unknown-loop'],
        "{*::nick 'no loop'}" => ['unknown-loop'],
        '{optional status  on sale}yes{/optional}' => ['compare-blanks'],
        "{dynamic rows}{optional [*] '1'}[{/optional}{*}{/dynamic}" => ['quoted-key'],
        '<{include missing.tpl}>' => ['missing-include'],
        '{* a title *}' => ['foreign-syntax'],
        "{htmlspecialchars nick 'you'}" => ['filter-words'],
        '{"a":{"b":{"c":1}}}' => ['lost-brace'],
        '{escape name}, {Htmlspecialchars name}' => ['mistyped-keyword', 'mistyped-keyword'],
        '{optional flag false}yes{/optional}' => ['section-expression'],
        "{optional a != 'x'}yes{/optional}" => ['section-expression'],
        '{optional a && b}yes{/optional}' => ['section-expression'],
    ];

    /** @return iterable<string, array{string, list<string>}> */
    public static function templates(): iterable
    {
        yield 'CSS' => ['nav .a{font-weight:bold} @media print{nav{display:none}#a{color:#fff}*{margin:0}} a::before{content:"{"}', []];
        yield 'CSS, a comment' => ['a{/* b */color:red} a{b:c}/* {d} */', []];
        yield 'a script' => ['f(function(){if(x){y()}else{$(z).hide()}}); while(x){z} var o={a:1,b:[2]}, {c}=d, p=`${q}`', []];
        yield 'JSON without tags' => ['{"a": {"b": [1, 2]}, "c": "{}"}', []];
        yield 'braces that were thought of' => ['{{"a": "{a}"}} { "b": {b} } {{{{ c }}}} {{name}} {{}}', []];
        yield 'JSON with a tag' => ['{"a": "{a::b}"}', ['1:1 swallowed-tag']];
        yield 'JSON with a number' => ['{"a": {a}, "b": 2}', ['1:1 swallowed-tag']];
        yield 'JSON in a loop' => ['{dynamic i,x}{"n": "{i::*::n}"},{/dynamic}', ['1:14 swallowed-tag']];
        yield 'a script with a filter' => ["\n f(){g('{addslashes a}')}", ['2:5 broken-tag', '2:5 swallowed-tag']];
        yield 'CSS with a default' => ["p{font-family: x, 'Arial'}", ['1:2 swallowed-tag']];
        yield 'CSS that makes the page null' => ["p{content:'x'}", ['1:2 broken-tag']];
        yield 'Smarty' => ['{* a {$b} *}{foreach $a as $b}{$b.c|upper}{$d->e}{/foreach}', ['1:1 foreign-syntax', '1:13 foreign-syntax',
            '1:31 foreign-syntax', '1:43 foreign-syntax', '1:50 foreign-syntax']];
        yield 'Latte' => ['{if $a > 1}{elseif $b}{else}{/if}', ['1:1 foreign-syntax', '1:12 foreign-syntax', '1:23 foreign-syntax', '1:29 foreign-syntax']];
        yield 'Twig' => ["{% for a in b %}{{ a.b|e }}{# c\n #}", ['1:1 foreign-syntax', '1:17 foreign-syntax', '1:28 foreign-syntax']];
        yield 'Mustache' => ["{{#a}}{{> b}}\n{{/a}}", ['1:1 foreign-syntax', '2:1 foreign-syntax']];
        yield 'Blade' => ["@foreach (\$a as \$b){{ \$b['c'] }}\n{!! \$d !!}<p>{{-- e --}}", ['1:1 foreign-syntax', '2:1 foreign-syntax', '2:14 foreign-syntax']];
        yield 'at-signs of others' => ['<style>@include(a){b:c} @import url(d)</style>e@if(f).org @media (print) @click(g) @if', []];
        yield 'doubled braces of others' => ["<script>{{ \$a }} {{ b + c }}</script> p {{ color: red }} {{\"a\": 'b + c'}} <a onclick='if (a) {{ b() }}'>{{a}}", []];
        yield 'expressions of others' => ["<script>a={b + c}</script> ()=>{a ? b : c} f(){a && b} {a = b} {a - 'b'} {dynamic x}{a * b}{/dynamic}", ['1:64 section-expression']];
        yield 'dollar signs of others' => ['<script>a = `${{n} ${b.c} ${d()} ${e + f} ${g[0]}`</script> costs ${n} {optional -}{/optional a {} b}', []];
        yield 'behind a long script' => ['<script>' . str_repeat(' ', 1_100_000) . '{{ $a }}</script>{{ $a }}', ['1:1100026 foreign-syntax']];
        yield 'words like those of other engines' => ["{if}{for}{section name}{else_ 'x'}{dynamic foreach}{* b}{*}{/dynamic}", []];
        yield 'keywords' => ['{included}{htmlspecialchars_raw}{addslashes[*]}', ['1:1 glued-keyword', '1:11 glued-keyword', '1:33 unknown-loop']];
        yield 'the right word before the brace' => ["é{x}\né{it's}", ['2:2 broken-tag']];
        yield 'several words in a filter' => ["{rawurlencode a\nb}{htmlentities  a }", ['1:1 filter-words']];
        yield 'commas' => ['{dynamic a ,b}{/dynamic}{rdynamic a,b, c}{/rdynamic}', ['1:1 loop-name-blanks']];
        yield 'compared' => ["{optional a 'x::y'}{/optional}{optional a\tb}{/optional}{optional a  'b'}{/optional}{optional a *}{/optional}",
            ['1:31 compare-blanks', '1:84 compare-path']];
        yield 'sane conditions' => ["{optional a b and c}{/optional}{optional a 'x > y'}{/optional}{!optional a 'true'}{/optional}{optional op <}{/optional}"
            . "{optional a it is}{/optional}{optional nothing}{/optional}{optional a -1}{/optional}{optional a 'say \"x\"'}{/optional}", []];
        yield 'words like keywords' => ["{excludes a}{title e}{national x}{entities y}{description z}{image_url y}{htmls x}{escape}{optimal 'x'}", []];
        yield 'braces of a script' => ['p=`${q.r} ${s}`;function f(){return this.x}; ()=>f(){a.b} /* @type {a.b} */x.f({a:{b:1}});{{a:{b:1}}}; {} } {{}}', []];
        yield 'swapped' => ["{optional a}\n{dynamic b}{/optional}{/dynamic}{/optional}", ['2:12 unexpected-closing-tag', '2:33 unexpected-closing-tag']];
        yield 'left open' => ["{dynamic a}\n{optional b}{/dynamic}{optional c}", ['2:13 unexpected-closing-tag', '2:23 unclosed-section']];
        yield 'the other way' => ['{dynamic a}{rdynamic b}{/dynamic}{/dynamic}', ['1:24 unexpected-closing-tag']];
        yield 'loops that end' => ['{dynamic a,b}{/dynamic}{a::*}{dynamic c,d}{a::* c::*}{dynamic x}{c::[*]}{[*]}{/dynamic}{/dynamic}',
            ['1:24 unknown-loop', '1:43 unknown-loop']];
        yield 'a path that is read while a loop runs' => ['{dynamic x}{*::a b::}{/dynamic}', ['1:12 broken-tag']];
        yield 'odd bytes in names' => ['{dynamic r{}{{,a}{r{}{::*}{dynamic r{}{{,b}{/dynamic}{/dynamic}', ['1:27 broken-tag']];
    }

    /** @return iterable<string, array{string, string}> */
    public static function faults(): iterable
    {
        $faults = [
            'section-expression' => ['{optional}', '{optional !a}', '{!optional not a}', '{optional a && b}', '{optional a||b}', '{optional a and b}',
                '{optional a == 1}', '{optional a > 1}', '{optional a>=1}', "{optional a != 'x'}", '{optional a "x y"}', '{optional a False}',
                "{optional a is 'x'}", "{optional a= 'x'}", '{n + 1}', '{n == 5}', '{n * 2}', "{n ? 'a' : 'b'}", "{n ?? 'a'}", "{name . 'b'}", "{row::*::a ~ 'b'}",
                "{nope || 'x'}"],
            'mistyped-keyword' => ['{escape name}', '{e name}', '{urlencode name}', '{escapeHtml name}', '{html-escape name}', '{url_encode name}',
                '{specialchars name}', '{esc_attr name}', '{json name}', '{strtoupper name}', '{number_format n 2}', '{escape $name}', '{Htmlspecialchars name}', '{!htmlspecialchars name}',
                '{html_special_chars *::name}', "{addslash name 'x'}", '{includ part.tpl}'],
            'foreign-syntax' => ['{user.name}', '{user->name}', "{user.name 'x'}", '{htmlspecialchars user.name}', '{optional user.isNew}',
                '{dynamic row in rows}', '{dynamic rows as row}', '{!name}', '{/name}', '{/!optional}', '{name "you"}', '{name|upper}', '{# see {name} #}',
                '{{htmlspecialchars name}}', '{{$name}}', "{{ row['x'] }}", '{{ n + 1 }}', "{{ n ? 'a' : 'b' }}", '@if(x)',
                '{optional $name}', '{dynamic $rows}', '{dynamic row,$rows}', '{htmlspecialchars $name}', '{include $name}'],
            'compare-path' => ['{optional state $state}'],
            'filter-words' => ['{htmlspecialchars(name)}'],
            'lost-brace' => ['<script>{"a":{"b":{"c":1}}}</script>', '@supports(x){@media y{.a{b:c}}}', 'if(x){if(z){y()}}}', "<a data-json='{\"a\":{\"b\":{\"c\":1}}}'>",
                '{{a}}{b}}}'],
            'swallowed-tag' => ['{optional -}{/optional see {name} here}', '<script>a = `${n}`</script>', '<script>a = `${n + \'x\'}`</script>',
                '{dynamic r,x}<script>a = `${r::*::n}`</script>{/dynamic}', '.a{color:{colour}}', '.a{color: {colour}}', 'f({id:{id}})'],
        ];
        foreach ($faults as $rule => $templates) {
            foreach ($templates as $template) {
                yield "$rule, $template" => [$rule, $template];
            }
        }
    }

    #[DataProvider('faults')]
    public function testFindsWhatIsMeantOtherwise(string $rule, string $text): void
    {
        $findings = $this->findings(null, new Template('page.tpl', $text));

        self::assertContains($rule, array_column($findings, 'rule'));
    }

    public function testTellsOfQuotesRoundTheNameOfAFileThatIsThere(): void
    {
        $this->write(['part.tpl' => '']);
        $findings = $this->findings(null, new Template('page.tpl', '{include "part.tpl"}{include \'part.tpl\'}{include prat.tpl}'));

        self::assertSame([true, true, false], array_map(fn(Finding $finding): bool => str_contains($finding->message, 'quotes'), $findings));
    }

    /** @param list<string> $expected */
    #[DataProvider('templates')]
    public function testFindsWhatIsSilentlyWrongAndNothingElse(string $text, array $expected): void
    {
        $expected = array_map(fn(string $place): string => "page.tpl:$place", $expected);

        self::assertSame($expected, $this->found(new Template('page.tpl', $text)));
    }

    public function testGivesNoFalseAlarmOnTheDocuments(): void
    {
        $traps = [];
        foreach (['README.md', 'docs/language.md', 'docs/coming-from.md'] as $name) {
            foreach (new Document($name)->rows() as $row) {
                $template = new Template('page.tpl', isset($row['Warning']) ? '' : $row['Template']);
                isset($row['part.tpl']) && $this->write(['part.tpl' => $row['part.tpl']]);
                $findings = $this->findings(null, $template);
                $traps += $findings === [] ? [] : [$template->text => array_column($findings, 'rule')];
            }
        }
        self::assertEquals(self::TRAPS, $traps);
    }

    public function testFindsNothingInTheRecipesButASectionLeftOpen(): void
    {
        $recipes = Recipe::all((string) file_get_contents(__DIR__ . '/../../../docs/recipes.md'));
        foreach ($recipes as $title => $recipe) {
            $this->write($recipe->templates());
            $found = $this->found(...array_map(Template::fromFile(...), array_keys($recipe->templates())));

            self::assertSame(str_starts_with($title, 'An error page') ? ['article.html.tpl:2:1 unclosed-section'] : [], $found, $title);
        }
    }

    public function testTakesAWordOfTheSampleDataForAPath(): void
    {
        $template = new Template('page.tpl', '{json name}{html name}{raw name}{{nick}}{{name}}<script>a = `${nick} ${name}`</script>');

        self::assertSame([1, 23, 41, 71], array_column($this->findings(['html' => null, 'name' => 'Ann'], $template), 'column'));
    }

    public function testCitesALongTagInOneLine(): void
    {
        [$finding] = $this->findings(null, new Template('page.tpl', "{it's" . str_repeat("\n z", 999) . '}'));

        self::assertMatchesRegularExpression('/^Variable .{100,300}write \{\{$/', $finding->message);
    }

    public function testFollowsIncludes(): void
    {
        $this->write([
            'blog/list.tpl' => '{dynamic post,posts}{include blog/post.tpl}{/dynamic}{include ./near.tpl}{include name::s}{include key}',
            'blog/post.tpl' => '{post::*::title}{*}{include blog/line.tpl}{page::*}{include line.tpl}',
            'blog/line.tpl' => '{post::[*]}{include /none/x.tpl}{include http://localhost/x.tpl}',
            'near.tpl' => '{*}',
        ]);
        $files = ['blog/list.tpl', 'blog/post.tpl', 'blog/line.tpl', 'near.tpl'];

        self::assertSame(
            ['blog/line.tpl:1:12 missing-include', 'blog/post.tpl:1:43 unknown-loop', 'blog/post.tpl:1:52 missing-include', 'near.tpl:1:1 unknown-loop'],
            $this->found(...array_map(Template::fromFile(...), $files)),
        );
    }

    public function testTakesAPathOfTheDataForTheNameOfATemplateThatNoOtherIncludes(): void
    {
        $this->write(['page.tpl' => '{dynamic row,rows}{include parts::row}{/dynamic}{include b.tpl}', 'a.tpl' => '{row::*}', 'b.tpl' => '{row::*}']);

        self::assertSame(['b.tpl:1:1 unknown-loop'], $this->found(Template::fromFile('a.tpl'), Template::fromFile('b.tpl')));
    }

    public function testFindsFaultsOfIncludedFiles(): void
    {
        $this->write(['page.tpl' => '{include part.tpl}', 'part.tpl' => "\n{a::}{optional b}{include page.tpl}"]);
        $page = Template::fromFile('page.tpl');

        self::assertSame(['part.tpl:2:1 broken-page'], $this->found($page));
        self::assertSame(['part.tpl:2:1 broken-tag', 'part.tpl:2:6 unclosed-section'], $this->found($page, Template::fromFile('part.tpl')));
    }
}
