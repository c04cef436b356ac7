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
        $extension = $withExtension ? ['-d', 'extension=' . __DIR__ . '/../../../modules/php_zorvel.so'] : [];
        $command = [PHP_BINARY, '-n', ...$extension, __DIR__ . '/../../vendor/bin/zorvel', ...$words];
        file_put_contents('.input', $input);
        $files = [['file', "$this->folder/.input", 'r'], ['file', "$this->folder/.output", 'w'], ['file', "$this->folder/.errors", 'w']];
        $process = proc_open($command, $files, $pipes, $this->folder);
        self::assertIsResource($process);

        return [proc_close($process), (string) file_get_contents('.output'), (string) file_get_contents('.errors')];
    }
}
