<?php

declare(strict_types=1);

namespace Zorvel\Tests;

use DOMDocument;
use PHPUnit\Framework\Attributes\DataProvider;
use PHPUnit\Framework\TestCase;
use Zorvel\View;

final class PagesTest extends TestCase
{
    private const string EXAMPLES = __DIR__ . '/../../../examples/pages';

    /** @return iterable<string, array{string, string}> */
    public static function pages(): iterable
    {
        foreach (glob(self::EXAMPLES . '/*/*.*.tpl') ?: [] as $template) {
            yield basename($template, '.tpl') => [dirname($template), basename($template)];
        }
    }

    #[DataProvider('pages')]
    public function testRendersAnExampleWithItsNaiveData(string $folder, string $template): void
    {
        foreach ([false, true] as $strict) {
            /** @var array<string, mixed> $data */
            $data = require "$folder/data.php";

            self::assertStringEqualsFile("$folder/" . basename($template, '.tpl'), new View($folder, $strict)->render($template, $data));
        }
    }

    public function testTheFeedIsWellFormed(): void
    {
        $feed = new DOMDocument();

        self::assertTrue($feed->load(self::EXAMPLES . '/blog/feed.xml'));
        self::assertSame(2, $feed->getElementsByTagName('entry')->length);
    }
}
