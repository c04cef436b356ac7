<?php

declare(strict_types=1);

namespace Zorvel\Playground\Tests;

use PHPUnit\Framework\Attributes\TestWith;
use PHPUnit\Framework\TestCase;
use Zorvel\Playground\InvalidData;
use Zorvel\Playground\PhpLiteral;

final class PhpLiteralTest extends TestCase
{
    #[TestWith(["[]"])]
    #[TestWith(["['a', 5 => 'b', 'c', 'd' => ['e' => array(1, 2,),],]; // data"])]
    #[TestWith(["[1_000, 0x1F, 0b11, 017, 0o17, -3, 1.5e3, -.5, 9223372036854775807, 9223372036854775808]"])]
    #[TestWith(["[true, FALSE, Null]"])]
    #[TestWith(["['it\\'s \\\\ \\n', 'a' . 'b' . 5]"])]
    #[TestWith(['["\n\t\r\e\v\f\\\\\$\"\a", "\0\101\x41\xe9\u{20AC}", "\\\n"]'])]
    public function testReadsWhatPhpReads(string $text): void
    {
        self::assertSame(eval("return $text\n;"), PhpLiteral::read($text));
    }

    #[TestWith(['[phpinfo()]', 1])]
    #[TestWith(["['a',\n\$_SERVER]", 2])]
    #[TestWith(["['a' => \n`id`]", 2])]
    #[TestWith(['["{$a}"]', 1])]
    #[TestWith(["[-'1']", 1])]
    #[TestWith(['[0xFFFFFFFFFFFFFFFFFF]', 1])]
    #[TestWith(['[PHP_OS]', 1])]
    #[TestWith(['[new PDO("")]', 1])]
    #[TestWith(['[fn() => 1]', 1])]
    #[TestWith(['[[] => 1]', 1])]
    #[TestWith(['["a" . []]', 1])]
    #[TestWith(['[1 2]', 1])]
    #[TestWith(['[1]; exit', 1])]
    #[TestWith(["[\n'a", 2])]
    #[TestWith(["[\n", 1])]
    #[TestWith(['', 1])]
    public function testRefusesWhatWouldRunAndWhatIsNotWhole(string $text, int $line): void
    {
        try {
            PhpLiteral::read($text);
            self::fail('It was read');
        } catch (InvalidData $error) {
            self::assertSame($line, $error->dataLine);
        }
    }
}
