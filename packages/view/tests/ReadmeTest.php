<?php

declare(strict_types=1);

namespace Zorvel\Tests;

final class ReadmeTest extends TemplatesTestCase
{
    public function testEveryExampleGivesWhatTheReadmeSays(): void
    {
        $blocks = '/^```zorvel (\S+)\n(.*?)^```\n```php\n(.*?)^```\n```\w+\n(.*?)^```$/ms';
        preg_match_all($blocks, (string) file_get_contents(dirname(__DIR__) . '/README.md'), $examples, PREG_SET_ORDER);
        foreach ($examples as [, $name, $template, $program, $page]) {
            chdir(dirname($this->folder([$name => $template])));
            ob_start();
            eval($program);
            self::assertSame(rtrim($page), rtrim((string) ob_get_clean()), $name);
        }
        self::assertCount(3, $examples);
    }
}
