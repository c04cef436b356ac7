<?php

declare(strict_types=1);

namespace Zorvel\Playground;

use FilesystemIterator;
use RuntimeException;
use SplFileInfo;

/**
 * Renders what strangers write: in a PHP of its own for each page, that has an empty folder, an empty environment, little
 * memory and little time. What it writes is read up to a limit, and it is killed when it has not ended by itself.
 */
final readonly class Sandbox
{
    private const int MOST_BYTES = 1 << 20;
    private const array SETTINGS = [
        'extension=' . __DIR__ . '/../../../modules/php_zorvel.so',
        'max_execution_time=1',
        'memory_limit=32M',
        'allow_url_fopen=0',
        'display_errors=stderr',
        'html_errors=0',
    ];

    /** @param float $seconds until it is killed; PHP's own limit strikes earlier */
    public function __construct(private float $seconds = 2.0) {}

    /**
     * @param string $job as Job takes it
     * @return array<array-key, mixed> the page, if there is one, and what Job reports
     */
    public function render(string $job): array
    {
        $folder = sys_get_temp_dir() . '/zorvel-playground-' . bin2hex(random_bytes(8));
        mkdir($folder, 0o700);
        try {
            [1 => $page, 2 => $errors, 3 => $report] = $this->outputs($folder, $job);
        } catch (RuntimeException $stop) {
            return ['error' => ['message' => $stop->getMessage()]];
        } finally {
            self::remove($folder);
        }

        return self::answer($page, $errors, $report);
    }

    /** @return array<int, string> */
    private function outputs(string $folder, string $job): array
    {
        $input = tmpfile() ?: throw new RuntimeException('No place for the templates');
        fwrite($input, $job);
        rewind($input);
        $ends = [$input, ['pipe', 'w'], ['pipe', 'w'], ['pipe', 'w']];
        $process = proc_open($this->command(), $ends, $pipes, $folder, []) ?: throw new RuntimeException('PHP cannot be started');
        try {
            return $this->read($pipes);
        } finally {
            proc_terminate($process, 9);
            proc_close($process);
        }
    }

    /** @return list<string> no shell takes part */
    private function command(): array
    {
        $settings = array_map(static fn(string $setting): string => "-d$setting", self::SETTINGS);

        return [PHP_BINARY, '-n', ...$settings, dirname(__DIR__) . '/child.php'];
    }

    /**
     * @param array<int, resource> $pipes
     * @return array<int, string> what came out of each
     */
    private function read(array $pipes): array
    {
        $texts = array_map(static fn(): string => '', $pipes);
        $end = microtime(true) + $this->seconds;
        while ($pipes !== []) {
            $ready = $pipes;
            [$write, $except] = [[], []];
            $left = max(0, $end - microtime(true));
            if (stream_select($ready, $write, $except, 0, (int) ($left * 1_000_000)) === 0) {
                throw new RuntimeException("It was stopped after $this->seconds seconds");
            }
            foreach ($ready as $number => $pipe) {
                $texts[$number] .= fread($pipe, 1 << 16);
                if (strlen($texts[$number]) > self::MOST_BYTES) {
                    throw new RuntimeException('More than a megabyte came out: it was stopped');
                }
                if (feof($pipe)) {
                    unset($pipes[$number]);
                }
            }
        }

        return $texts;
    }

    /** @return array<array-key, mixed> */
    private static function answer(string $page, string $errors, string $report): array
    {
        $answer = ['warnings' => [], 'findings' => []];
        foreach (explode("\n", trim($report)) as $line) {
            $answer = (array) json_decode($line, true) + $answer;
        }
        $fatal = preg_match('/(?<=error: ).*(?= in \S+ on line \d+$)/m', $errors, $match) === 1 ? $match[0] : null;
        if (!isset($answer['microseconds'])) {
            return $answer + ['error' => ['message' => $fatal ?? 'PHP ended without a page']];
        }
        $unchecked = $fatal === null ? [] : ['warnings' => ["Not all is checked: $fatal"]];

        return ['page' => $page, 'bytes' => strlen($page)] + $unchecked + $answer;
    }

    private static function remove(string $folder): void
    {
        foreach (new FilesystemIterator($folder) as $file) {
            assert($file instanceof SplFileInfo);
            $file->isDir() ? self::remove($file->getPathname()) : unlink($file->getPathname());
        }
        rmdir($folder);
    }
}
