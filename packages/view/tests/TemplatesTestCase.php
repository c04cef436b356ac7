<?php

declare(strict_types=1);

namespace Zorvel\Tests;

use PHPUnit\Framework\TestCase;
use Zorvel\TemplateError;
use Zorvel\View;

/** A test that writes templates into folders of its own. */
abstract class TemplatesTestCase extends TestCase
{
    private string $root;

    protected function setUp(): void
    {
        $this->root = sys_get_temp_dir() . '/zorvel-view-' . bin2hex(random_bytes(6));
    }

    protected function tearDown(): void
    {
        exec('rm -rf ' . escapeshellarg($this->root));
    }

    /** @param array<string, string> $templates text by name */
    protected function folder(array $templates, string $folder = 'templates'): string
    {
        foreach ($templates as $name => $text) {
            $file = "$this->root/$folder/$name";
            is_dir(dirname($file)) || mkdir(dirname($file), recursive: true);
            file_put_contents($file, $text);
        }

        return "$this->root/$folder";
    }

    /** @param array<array-key, mixed> $data */
    protected function page(string $template, array $data = [], bool $strict = false): string
    {
        return new View($this->folder(['page.tpl' => $template]), $strict)->render('page.tpl', $data);
    }

    /** @param array<array-key, mixed> $data */
    protected static function failure(View $view, string $template, array $data = []): TemplateError
    {
        try {
            self::fail("There is a page: {$view->render($template, $data)}");
        } catch (TemplateError $error) {
            return $error;
        }
    }
}
