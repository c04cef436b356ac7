<?php

declare(strict_types=1);

namespace Zorvel\Tools\Tests;

use Random\Engine\Xoshiro256StarStar;
use Random\Randomizer;
use Zorvel\Tools\Finding;
use Zorvel\Tools\Level;
use Zorvel\Tools\Rule\Rules;
use Zorvel\Tools\Template\Folders;
use Zorvel\Tools\Template\Includes;
use Zorvel\Tools\Template\Template;

final class RulesTest extends ToolsTestCase
{
    private const array PIECES = ['{', '}', '{optional a}', '{!optional b c}', '{/optional}', '{dynamic r,x}', '{dynamic s,r::*::y}',
        '{rdynamic z}', '{/dynamic}', '{/rdynamic}', '{htmlspecialchars ', 'r::*', '::', ':', '*', '[*]', "'", ' ', 'word', '{{', '{*::w '];

    /** In some of it every section is shown and every loop has an element, but none has what a path asks for. */
    private const array DATA = [
        [],
        ['a' => true, 'b' => 'x', 'x' => [['y' => [[]]]], 'z' => [[]]],
        ['x' => [['y' => [[]]]], 'z' => [[]]],
    ];

    public function testEachExampleIsFoundByItsRuleAndTheMendedOneByNone(): void
    {
        $folders = new Folders([], []);
        $names = new Rules($folders, new Includes($folders))->names();
        $examples = new Document('docs/lint.md')->blocks();
        self::assertEqualsCanonicalizing([...$names, 'broken-page', 'silent-tag'], array_keys($examples));

        $this->write(['part.tpl' => '']);
        foreach ($examples as $rule => $blocks) {
            isset($blocks['php']) ? eval($blocks['php']) : $this->write(['page.tpl' => $blocks['zorvel']]);
            $data = isset($blocks['json sample.json']) ? (array) json_decode($blocks['json sample.json'], true) : null;
            self::assertSame([$rule], array_column($this->findings($data, Template::fromFile('page.tpl')), 'rule'), $rule);
            unlink('page.tpl');
            $this->write(['page.tpl' => $blocks['zorvel mended']]);
            self::assertSame([], $this->findings($data, Template::fromFile('page.tpl')), $rule);
        }
    }

    public function testFindsEachFaultThatMessagesTellsOf(): void
    {
        $count = 0;
        foreach (new Document('docs/messages.md')->rows() as $row) {
            $this->write(['page.tpl' => $row['page.tpl'], 'part.tpl' => $row['part.tpl'] ?? '']);
            [$message, $file] = explode(' in p', $row['Warning']);
            $errors = array_filter(
                $this->errorsIn(Template::fromFile('page.tpl')),
                fn(Finding $error): bool => $error->file === "p$file" && str_starts_with($error->message, $message),
            );
            self::assertCount(1, $errors, $row['page.tpl']);
            ++$count;
        }
        self::assertGreaterThan(20, $count);
    }

    public function testFindsAnErrorExactlyWhereTheExtensionGivesNoPage(): void
    {
        $random = new Randomizer(new Xoshiro256StarStar(9));
        $refused = 0;
        for ($round = 0; $round < 3000; ++$round) {
            $text = $this->randomTemplate($random);
            $errors = $this->errorsIn(new Template('page.tpl', $text));
            $isRefused = array_any(self::DATA, fn(array $data): bool => $this->isRefused($text, $data));
            self::assertSame($isRefused, $errors !== [], $text);
            self::assertNotContains('broken-page', array_column($errors, 'rule'), $text);
            $refused += (int) $isRefused;
        }
        self::assertGreaterThan(1000, $refused);
        self::assertLessThan(2800, $refused);
    }

    private function randomTemplate(Randomizer $random): string
    {
        $pieces = array_map(fn(): int => $random->getInt(0, count(self::PIECES) - 1), range(1, $random->getInt(1, 9)));

        return implode('', array_map(fn(int $piece): string => self::PIECES[$piece], $pieces));
    }

    /** @param array<string, mixed> $data */
    private function isRefused(string $text, array $data): bool
    {
        set_error_handler(fn(): bool => true);
        try {
            return zorvel($text, $data, true) === null;
        } finally {
            restore_error_handler();
        }
    }

    /** @return list<Finding> */
    private function errorsIn(Template $template): array
    {
        return array_values(array_filter($this->findings(null, $template), fn(Finding $finding): bool => $finding->level === Level::Error));
    }
}
