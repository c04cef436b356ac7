<?php

declare(strict_types=1);

namespace Zorvel\Tools\Tests;

final class InstallTest extends ToolsTestCase
{
    /** Composer may run under another PHP than the project: it is told which. */
    private const string PROJECT = '{"config": {"platform": {"php": "8.4.24", "ext-zorvel": "2.0.0"}}, "repositories": [%s]}';

    public function testWorksInAnEmptyProject(): void
    {
        $packages = ['type' => 'path', 'url' => dirname(__DIR__, 2) . '/*', 'options' => ['symlink' => false]];
        $this->write([
            'composer.json' => sprintf(self::PROJECT, json_encode($packages)),
            'page.tpl' => 'Dear {htmlspecialchars name},',
            'page.json' => '{"name": "Tom & Ann"}',
            'page.php' => '<?php require "vendor/autoload.php"; echo new Zorvel\View(".")->render("page.tpl", ["name" => 5]);',
        ]);
        exec('COMPOSER_ALLOW_SUPERUSER=1 composer --no-interaction --no-plugins require zorvel/tools:@dev zorvel/view:@dev 2>&1', $lines, $status);
        self::assertSame(0, $status, implode("\n", $lines));
        self::assertFalse(is_link('vendor/zorvel/tools') || is_link('vendor/zorvel/view'));

        $command = "$this->folder/vendor/bin/zorvel";
        self::assertStringStartsWith('zorvel ', $this->php([$command, '--version'])[1]);
        self::assertSame([0, 'Dear Tom &amp; Ann,', ''], $this->php([$command, 'render', 'page.tpl', '--data', 'page.json']));
        self::assertSame([0, 'Dear 5,', ''], $this->php(['page.php']));
    }
}
