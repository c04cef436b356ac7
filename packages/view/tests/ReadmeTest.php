<?php

declare(strict_types=1);

namespace Zorvel\Tests;

use PHPUnit\Framework\Attributes\TestWith;

final class ReadmeTest extends TemplatesTestCase
{
    private const string BLOCKS = '/^```zorvel (\S+)\n(.*?)^```\n```php\n([^`]*Zorvel.*?)^```\n```\w+\n(.*?)^```$/ms';

    #[TestWith(['README.md', 3])]
    #[TestWith(['../../README.md', 1])]
    public function testEveryExampleOfTheViewGivesWhatTheReadmeSays(string $readme, int $count): void
    {
        preg_match_all(self::BLOCKS, (string) file_get_contents(dirname(__DIR__) . "/$readme"), $examples, PREG_SET_ORDER);
        foreach ($examples as [, $name, $template, $program, $page]) {
            chdir(dirname($this->folder([$name => $template])));
            ob_start();
            eval($program);
            self::assertSame(rtrim($page), rtrim((string) ob_get_clean()), $name);
        }
        self::assertCount($count, $examples);
    }
}
