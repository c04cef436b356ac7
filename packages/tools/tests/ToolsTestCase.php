<?php

declare(strict_types=1);

namespace Zorvel\Tools\Tests;

use PHPUnit\Framework\TestCase;
use Zorvel\Tools\Finding;
use Zorvel\Tools\Linter;
use Zorvel\Tools\Template\Folders;
use Zorvel\Tools\Template\Template;

/** Each test works in an empty folder of its own. */
abstract class ToolsTestCase extends TestCase
{
    protected string $folder;

    private string $outside;

    protected function setUp(): void
    {
        $this->outside = (string) getcwd();
        $this->folder = sys_get_temp_dir() . '/zorvel-tools-' . bin2hex(random_bytes(6));
        mkdir($this->folder);
        chdir($this->folder);
    }

    protected function tearDown(): void
    {
        chdir($this->outside);
        exec('rm -r ' . escapeshellarg($this->folder));
    }

    /** @param array<string, string> $files */
    protected function write(array $files): void
    {
        foreach ($files as $name => $text) {
            is_dir(dirname($name)) || mkdir(dirname($name), recursive: true);
            file_put_contents($name, $text);
        }
    }

    /**
     * @param ?array<array-key, mixed> $data
     * @return list<Finding>
     */
    protected function findings(?array $data, Template ...$templates): array
    {
        return new Linter(new Folders(['.'], ['tpl']), $data)->lint(array_values($templates));
    }

    /** @return list<string> places and rules */
    protected function found(Template ...$templates): array
    {
        return array_map(
            fn(Finding $finding): string => "$finding->file:$finding->line:$finding->column $finding->rule",
            $this->findings(null, ...$templates),
        );
    }

    /**
     * Runs the command in a process of its own.
     *
     * @param list<string> $words
     * @return array{int, string, string} the exit status, what it wrote, and its errors
     */
    protected function zorvel(array $words, string $input = '', bool $withExtension = true): array
    {
        return $this->php([__DIR__ . '/../../vendor/bin/zorvel', ...$words], $input, $withExtension);
    }

    /**
     * @param list<string> $words
     * @return array{int, string, string}
     */
    protected function php(array $words, string $input = '', bool $withExtension = true): array
    {
        $extension = $withExtension ? ['-d', 'extension=' . __DIR__ . '/../../../modules/php_zorvel.so'] : [];
        $names = array_map(fn(string $name): string => "$this->folder/$name", ['.input', '.output', '.errors']);
        file_put_contents($names[0], $input);
        $files = [['file', $names[0], 'r'], ['file', $names[1], 'w'], ['file', $names[2], 'w']];
        $process = proc_open([PHP_BINARY, '-n', ...$extension, ...$words], $files, $pipes, $this->folder);
        self::assertIsResource($process);

        return [proc_close($process), (string) file_get_contents($names[1]), (string) file_get_contents($names[2])];
    }
}
