<?php

declare(strict_types=1);

namespace Zorvel\Bench\Tests;

use PHPUnit\Framework\Attributes\TestWith;
use PHPUnit\Framework\TestCase;
use RuntimeException;
use Zorvel\Bench\Output;

final class OutputTest extends TestCase
{
    #[TestWith(["<p>\n  a b</p>\n", '<p>ab</p>'], 'blanks')]
    #[TestWith(['<p>&#39;&#x27;&apos;</p>', '<p>&#039;&#039;&#039;</p>'], 'spellings of a reference')]
    #[TestWith(['"a" <b>"b"</b>', '&quot;a&quot; <b>&#34;b&quot;</b>'], 'quotation marks between tags')]
    public function testEqual(string $one, string $other): void
    {
        $this->expectNotToPerformAssertions();
        Output::assertSame('page', ['one' => $one, 'other' => $other]);
    }

    #[TestWith(['<p>&lt;</p>', '<p><</p>'], 'not escaped')]
    #[TestWith(['<p>&amp;</p>', '<p>&amp;amp;</p>'], 'escaped twice')]
    #[TestWith(['<p title="&quot;">', '<p title=""">'], 'quotation marks in a tag')]
    #[TestWith(['<p>a</p><p>b</p>', '<p>a</p>'], 'cut short')]
    public function testDifferent(string $one, string $other): void
    {
        $this->expectException(RuntimeException::class);
        Output::assertSame('page', ['one' => $one, 'other' => $other]);
    }
}
