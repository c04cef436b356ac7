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
        mkdir($this->root);
    }

    protected function tearDown(): void
    {
        exec('rm -r ' . escapeshellarg($this->root));
    }

    /** @param array<string, string> $templates text by name */
    protected function folder(array $templates, string $folder = 'templates'): string
    {
        foreach ($templates as $name => $text) {
            is_dir(dirname("$this->root/$folder/$name")) || mkdir(dirname("$this->root/$folder/$name"), recursive: true);
            file_put_contents("$this->root/$folder/$name", $text);
        }

        return "$this->root/$folder";
    }

    /** @param array<string, mixed> $data */
    protected function page(string $template, array $data = []): string
    {
        return new View($this->folder(['page.tpl' => $template]))->render('page.tpl', $data);
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
