<?php

declare(strict_types=1);

namespace Zorvel\Tests;

use PHPUnit\Framework\Attributes\DataProvider;
use Zorvel\View;

/** The view's own messages in docs/messages.md; tests/documents.phpt gives all others. */
final class MessagesTest extends TemplatesTestCase
{
    private const string ROW = '/^\| `(\{[^`]*)` \| (?:`([^`]*)`)? \| `([^`]*)` \| [^|]* \|$/m';

    /** @return list<array{string, string, string}> */
    public static function rows(): array
    {
        $section = (string) strstr((string) file_get_contents(__DIR__ . '/../../../docs/messages.md'), "\n## The view\n");
        preg_match_all(self::ROW, $section, $rows, PREG_SET_ORDER);

        return array_map(static fn(array $row): array => [$row[1], $row[2], $row[3]], $rows);
    }

    #[DataProvider('rows')]
    public function testTheViewSaysWhatTheDocumentSays(string $tag, string $data, string $message): void
    {
        $view = new View($this->folder(['page.tpl' => $tag]), strict: true);
        $error = self::failure($view, 'page.tpl', $data === '' ? [] : (array) eval("return $data;"));

        self::assertSame($message, $error->getReason());
    }

    public function testEveryRowIsRun(): void
    {
        self::assertCount(12, self::rows());
    }
}
