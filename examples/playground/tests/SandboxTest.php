<?php

declare(strict_types=1);

namespace Zorvel\Playground\Tests;

use PHPUnit\Framework\Attributes\DataProvider;
use PHPUnit\Framework\TestCase;
use Zorvel\Playground\Sandbox;

final class SandboxTest extends TestCase
{
    private const string TEN = "['a' => [1, 2, 3, 4, 5, 6, 7, 8, 9, 10]]";

    /** @return iterable<string, array{string, string, ?string, string}> template, data, page, what is told */
    public static function jobs(): iterable
    {
        yield 'a page' => ['{a}{b}', "['a' => 1, 'b' => \"\u{e9}\"]", '1é', '~^$~'];
        yield 'JSON' => ['{a::b}', '{"a": {"b": "c"}}', 'c', '~^$~'];
        yield 'a file of the machine' => ['<{include /etc/passwd}>', '', '<>', '~open_basedir restriction.*/etc/passwd~'];
        yield 'a file of the process' => ['<{include /proc/self/environ}>', '', '<>', '~open_basedir restriction~'];
        yield 'a file beside the folder' => ['<{include ../}>', '', '<>', '~open_basedir restriction~'];
        yield 'a file of the program' => ['<{include ' . __FILE__ . '}>', '', '<>', '~open_basedir restriction~'];
        yield 'a name in the data' => ['<{include a}>', "['a' => '/etc/passwd']", '<>', '~open_basedir restriction~'];
        foreach (['php://input', 'php://filter/resource=/etc/passwd', 'http://127.0.0.1/', 'data:,x', 'glob:///*', 'phar://x.phar/y'] as $url) {
            yield $url => ["<{include $url}>", '', '<>', '~find the wrapper "' . strtok($url, ':') . '"~'];
        }
        yield 'a loop without end' => [self::loops(40, ''), self::TEN, null, '~^Maximum execution time of 1 second exceeded$~'];
        yield 'a page of gigabytes' => [self::loops(6, str_repeat('gigabytes', 1000)), self::TEN, null, '~^Allowed memory size of 33554432 bytes exhausted~'];
        yield 'a page of megabytes' => [self::loops(6, 'megabytes'), self::TEN, null, '~^More than a megabyte came out~'];
        yield 'data without end' => ['', str_repeat('[', 200_000), null, '~^(Allowed memory size|Maximum execution time)~'];
        yield 'a page whose check takes too long' => [self::loops(5, '{optional ' . str_repeat('b::', 300) . 'b}{/optional}'), self::TEN, '', '~^Not all is checked: Maximum execution time~'];
        yield 'a fault' => ["\n{optional a}", '', null, '~^Missing closing tag page.tpl 2$~'];
        yield 'data that is none' => ['', "[\n'a' => getenv()]", null, '~not getenv data 2$~'];
        yield 'broken JSON' => ['', '{"a"}', null, '~^The data is no JSON: Syntax error data $~'];
        yield 'a value' => ['', '5', null, '~^The data is no array~'];
    }

    #[DataProvider('jobs')]
    public function testGivesAPageOrTellsWhyNot(string $template, string $data, ?string $page, string $told): void
    {
        $answer = self::answer(['page.tpl' => $template], $data);

        self::assertSame($page, $answer['page'] ?? null);
        self::assertMatchesRegularExpression($told, implode(' ', $answer['error'] ?? $answer['warnings'] ?? []));
    }

    public function testShowsFindingsOfAllFiles(): void
    {
        $answer = self::answer(['page.tpl' => '{include parts/a.tpl}', 'parts/a.tpl' => "\n{nmae}"], "['name' => 'Ann']");

        self::assertSame("\n{nmae}", $answer['page'] ?? null);
        self::assertSame([['parts/a.tpl', 2, 'silent-tag']], array_map(static fn(array $finding): array => [
            $finding['file'], $finding['line'], $finding['rule'],
        ], $answer['findings'] ?? []));
    }

    public function testTakesNoNameThatLeadsOutOfItsFolder(): void
    {
        foreach (['../a.tpl', '/tmp/a.tpl', 'a/../../b.tpl', 'php://stdout', "a.tpl\n", ''] as $name) {
            self::assertStringContainsString('is no name for a template', self::answer([$name => ''], '')['error']['message'] ?? '', $name);
        }
    }

    public function testKillsWhatDoesNotEndByItself(): void
    {
        $answer = self::answer(['page.tpl' => self::loops(40, '')], self::TEN, new Sandbox(0.1));

        self::assertSame(['error' => ['message' => 'It was stopped after 0.1 seconds']], $answer);
    }

    private static function loops(int $depth, string $body): string
    {
        return str_repeat('{dynamic a}', $depth) . $body . str_repeat('{/dynamic}', $depth);
    }

    /**
     * @param array<string, string> $files
     * @return array{page?: string, error?: array<string, string>, warnings?: list<string>, findings?: list<array<string, string>>}
     */
    private static function answer(array $files, string $data, Sandbox $sandbox = new Sandbox()): array
    {
        /** @phpstan-ignore return.type (what the child tells) */
        return $sandbox->render((string) json_encode(['files' => $files, 'data' => $data]));
    }
}
