<?php

declare(strict_types=1);

namespace Zorvel\Tools\Tests;

/** Starts the command in a process of its own, as its users do. */
trait RunsZorvel
{
    use TemporaryFolder;

    /**
     * @param list<string> $words
     * @return array{int, string, string} the exit status, what it wrote, and its errors
     */
    private function zorvel(array $words, string $input = '', bool $withExtension = true): array
    {
        return $this->php([__DIR__ . '/../../vendor/bin/zorvel', ...$words], $input, $withExtension);
    }

    /**
     * @param list<string> $words
     * @return array{int, string, string}
     */
    private function php(array $words, string $input = '', bool $withExtension = true): array
    {
        $extension = $withExtension ? ['-d', 'extension=' . __DIR__ . '/../../../modules/php_zorvel.so'] : [];
        $names = ["$this->folder/.input", "$this->folder/.output", "$this->folder/.errors"];
        file_put_contents($names[0], $input);
        $files = [['file', $names[0], 'r'], ['file', $names[1], 'w'], ['file', $names[2], 'w']];
        $process = proc_open([PHP_BINARY, '-n', ...$extension, ...$words], $files, $pipes, $this->folder);
        self::assertIsResource($process);

        return [proc_close($process), (string) file_get_contents($names[1]), (string) file_get_contents($names[2])];
    }
}
