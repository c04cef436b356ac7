<?php

declare(strict_types=1);

namespace Zorvel\Tools\Template;

use Zorvel\Tools\Finding;
use Zorvel\Tools\Level;
use Zorvel\Tools\UsageError;

/** The templates that a command line names: files, folders to search, and "-" for standard input. */
final class Selection
{
    /** @var list<Finding> what could not be read */
    public private(set) array $unreadable = [];

    /** How many templates were read. */
    public private(set) int $count = 0;

    /**
     * @param list<string> $paths
     * @throws UsageError for a path that is neither a file nor a folder
     */
    public function __construct(private readonly array $paths, private readonly Folders $folders)
    {
        foreach ($paths as $path) {
            if ($path !== '-' && !file_exists($path)) {
                throw new UsageError("no such file or folder: $path");
            }
        }
    }

    /**
     * The folders of these paths, in which included files are looked for first.
     *
     * @param list<string> $paths
     * @return list<string>
     */
    public static function foldersOf(array $paths): array
    {
        return array_map(fn(string $path): string => is_dir($path) ? $path : dirname($path), $paths);
    }

    /** @return iterable<Template> */
    public function templates(): iterable
    {
        foreach (array_unique(array_merge(...array_map($this->filesIn(...), $this->paths))) as $file) {
            $template = $this->read($file);
            if ($template !== null) {
                ++$this->count;
                yield $template;
            }
        }
    }

    /** @return list<string> */
    private function filesIn(string $path): array
    {
        $unreadable = [];
        $files = is_dir($path) ? $this->folders->templatesIn($path, $unreadable) : [$path];
        array_map($this->addUnreadable(...), $unreadable);

        return $files;
    }

    private function read(string $file): ?Template
    {
        if ($file === '-') {
            return new Template('stdin', (string) stream_get_contents(STDIN), true);
        }
        try {
            return Template::fromFile($file);
        } catch (UnreadableFile) {
            $this->addUnreadable($file);

            return null;
        }
    }

    private function addUnreadable(string $path): void
    {
        $this->unreadable[] = new Finding($path, 1, 1, Level::Error, 'unreadable', 'This cannot be read: give permission, or leave it out');
    }
}
